#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "converter/window/automation.hpp"
#include "converter/window/word_connection.hpp"

// A stand-in for Word's object tree: every object property that has no stored value is a child
// object made on first use, every call is logged as one line ("get ActiveDocument.Content",
// "put Find.Font.Name=Bamini", "call ...Execute(FindText=a,...)"), and members named in
// `failing` fail. Values put are kept, so a later get reads them back.
namespace quilom::converter::window::testing {

class FakeAutomation final : public AutomationObject, public std::enable_shared_from_this<FakeAutomation> {
 public:
  struct Shared {
    std::vector<std::string> log;
    std::set<std::string> failing;        // full paths: "ActiveWindow.Selection.Find.Execute"
    std::map<std::string, int> failFrom;  // full path -> the 1-based call from which it fails
    std::map<std::string, int> calls;     // full path -> calls so far
  };

  FakeAutomation(std::string path, std::shared_ptr<Shared> shared);
  static std::shared_ptr<FakeAutomation> Root();

  bool Get(std::u16string_view member, AutomationValue& result) override;
  bool Put(std::u16string_view member, const AutomationValue& value) override;
  bool Call(std::u16string_view member, const std::vector<NamedArgument>& arguments, AutomationValue& result) override;
  ErrorDetails LastError() const override { return lastError_; }

  // The object at a dotted path below this one, made when missing.
  std::shared_ptr<FakeAutomation> At(const std::string& dottedPath);
  void Set(const std::string& member, AutomationValue value) { values_[member] = std::move(value); }
  std::vector<std::string>& Log() { return shared_->log; }
  void FailOn(const std::string& fullPath) { shared_->failing.insert(fullPath); }
  void FailFromCall(const std::string& fullPath, int call) { shared_->failFrom[fullPath] = call; }
  // Log lines that begin with `prefix`.
  std::vector<std::string> LinesStartingWith(const std::string& prefix) const;

 private:
  std::string PathOf(std::u16string_view member) const;
  bool Failing(const std::string& fullPath);
  std::shared_ptr<FakeAutomation> Child(const std::string& member);

  std::string path_;
  std::shared_ptr<Shared> shared_;
  std::map<std::string, AutomationValue> values_;
  std::map<std::string, std::shared_ptr<FakeAutomation>> children_;
  ErrorDetails lastError_;
};

std::string Describe(const AutomationValue& value);

// A connector that hands out a fixed application (or none).
class FixedConnector final : public WordConnector {
 public:
  explicit FixedConnector(AutomationRef application) : application_(std::move(application)) {}
  AutomationRef AttachRunning() override {
    ++attaches;
    return application_;
  }
  int attaches = 0;

 private:
  AutomationRef application_;
};

}  // namespace quilom::converter::window::testing
