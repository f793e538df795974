#include "fake_automation.hpp"

#include "text/utf.hpp"

namespace quilom::converter::window::testing {

FakeAutomation::FakeAutomation(std::string path, std::shared_ptr<Shared> shared)
    : path_(std::move(path)), shared_(std::move(shared)) {}

std::shared_ptr<FakeAutomation> FakeAutomation::Root() {
  return std::make_shared<FakeAutomation>("", std::make_shared<Shared>());
}

std::string Describe(const AutomationValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return "(none)";
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  if (const auto* textValue = std::get_if<std::u16string>(&value)) return text::Utf16ToUtf8(*textValue);
  return "(object)";
}

std::string FakeAutomation::PathOf(std::u16string_view member) const {
  const std::string name = text::Utf16ToUtf8(member);
  return path_.empty() ? name : path_ + "." + name;
}

bool FakeAutomation::Failing(const std::string& fullPath) {
  const int call = ++shared_->calls[fullPath];
  const auto from = shared_->failFrom.find(fullPath);
  const bool failsNow = from != shared_->failFrom.end() && call >= from->second;
  if (shared_->failing.count(fullPath) == 0 && !failsNow) {
    return false;
  }
  lastError_ = {-2146824090, u"Fake Word", u"refused " + text::Utf8ToUtf16(fullPath)};
  return true;
}

std::shared_ptr<FakeAutomation> FakeAutomation::Child(const std::string& member) {
  auto& child = children_[member];
  if (child == nullptr) {
    child = std::make_shared<FakeAutomation>(path_.empty() ? member : path_ + "." + member, shared_);
  }
  return child;
}

std::shared_ptr<FakeAutomation> FakeAutomation::At(const std::string& dottedPath) {
  std::shared_ptr<FakeAutomation> node = shared_from_this();
  std::size_t begin = 0;
  while (begin <= dottedPath.size()) {
    const std::size_t dot = dottedPath.find('.', begin);
    const std::string part = dottedPath.substr(begin, dot == std::string::npos ? std::string::npos : dot - begin);
    node = node->Child(part);
    if (dot == std::string::npos) break;
    begin = dot + 1;
  }
  return node;
}

bool FakeAutomation::Get(std::u16string_view member, AutomationValue& result) {
  const std::string full = PathOf(member);
  shared_->log.push_back("get " + full);
  if (Failing(full)) return false;
  const std::string name = text::Utf16ToUtf8(member);
  if (auto found = values_.find(name); found != values_.end()) {
    result = found->second;
  } else {
    result = AutomationRef(Child(name));
  }
  return true;
}

bool FakeAutomation::Put(std::u16string_view member, const AutomationValue& value) {
  const std::string full = PathOf(member);
  shared_->log.push_back("put " + full + "=" + Describe(value));
  if (Failing(full)) return false;
  values_[text::Utf16ToUtf8(member)] = value;
  return true;
}

bool FakeAutomation::Call(std::u16string_view member, const std::vector<NamedArgument>& arguments,
                          AutomationValue& result) {
  const std::string full = PathOf(member);
  std::string line = "call " + full + "(";
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    line += (i == 0 ? "" : ",") + text::Utf16ToUtf8(arguments[i].name) + "=" + Describe(arguments[i].value);
  }
  shared_->log.push_back(line + ")");
  if (Failing(full)) return false;
  result = true;
  return true;
}

std::vector<std::string> FakeAutomation::LinesStartingWith(const std::string& prefix) const {
  std::vector<std::string> lines;
  for (const std::string& line : shared_->log) {
    if (line.rfind(prefix, 0) == 0) lines.push_back(line);
  }
  return lines;
}

}  // namespace quilom::converter::window::testing
