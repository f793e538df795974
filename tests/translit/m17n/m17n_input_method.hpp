#pragma once

#include <string>
#include <string_view>

// One of m17n's input methods (m17n-db's .mim files, run by libm17n), typing ASCII keys the
// way a user at a fresh text field would: each key in turn, then a focus-out that commits
// whatever is still pending.
namespace quilom::testing {

class M17nInputMethod {
 public:
  // The method of language `language` named `name` ("hi", "itrans"); nullptr when m17n-db has
  // no such method. A method once opened stays open for the life of the process and is shared,
  // since libm17n shares the maps that one method includes from another between them.
  static const M17nInputMethod* Open(std::string_view language, std::string_view name);

  M17nInputMethod(const M17nInputMethod&) = delete;
  M17nInputMethod& operator=(const M17nInputMethod&) = delete;

  // The text the keys give in a new input context (UTF-8). A key the method does not handle
  // is typed as itself.
  std::string TypeUtf8(std::string_view keys) const;
  std::u16string Type(std::string_view keys) const;

 private:
  explicit M17nInputMethod(void* method) : method_(method) {}
  void* method_;  // MInputMethod*, kept opaque so that users need not include m17n.h
};

}  // namespace quilom::testing
