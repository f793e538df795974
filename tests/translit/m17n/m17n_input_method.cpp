#include "m17n_input_method.hpp"

#include <m17n.h>

#include <map>
#include <vector>

#include "text/utf.hpp"

namespace quilom::testing {
namespace {

// m17n must be set up once per process and stays so: input methods are opened for the
// program's whole life, and finishing m17n while one is open would free its tables.
void InitialiseOnce() {
  static const bool initialised = [] {
    M17N_INIT();
    return true;
  }();
  (void)initialised;
}

void AppendAndRelease(MText* out, MText* piece) {
  if (mtext_len(piece) > 0) mtext_cat(out, piece);
  m17n_object_unref(piece);
}

std::string Utf8(MText* text) {
  std::vector<unsigned char> buffer(static_cast<size_t>(mtext_len(text)) * 4 + 1);
  const int bytes = mconv_encode_buffer(Mcoding_utf_8, text, buffer.data(), static_cast<int>(buffer.size()));
  return std::string(reinterpret_cast<const char*>(buffer.data()), bytes < 0 ? 0 : static_cast<size_t>(bytes));
}

}  // namespace

const M17nInputMethod* M17nInputMethod::Open(std::string_view language, std::string_view name) {
  InitialiseOnce();
  // Never freed: see the header.
  static auto* opened = new std::map<std::string, M17nInputMethod*>;
  const std::string id = std::string(language) + "-" + std::string(name);
  if (const auto it = opened->find(id); it != opened->end()) return it->second;
  MInputMethod* method =
      minput_open_im(msymbol(std::string(language).c_str()), msymbol(std::string(name).c_str()), nullptr);
  if (!method) return nullptr;
  return (*opened)[id] = new M17nInputMethod(method);
}

std::string M17nInputMethod::TypeUtf8(std::string_view keys) const {
  MInputContext* context = minput_create_ic(static_cast<MInputMethod*>(method_), nullptr);
  MText* out = mtext();
  for (const char key : keys) {
    const char name[2] = {key, 0};
    const MSymbol symbol = msymbol(name);
    if (minput_filter(context, symbol, nullptr) != 0) continue;
    MText* produced = mtext();
    if (minput_lookup(context, symbol, nullptr, produced) < 0)
      mtext_cat_char(produced, static_cast<unsigned char>(key));
    AppendAndRelease(out, produced);
  }
  // The empty key is m17n's focus-out: it commits what is still being composed.
  minput_filter(context, Mnil, nullptr);
  MText* rest = mtext();
  minput_lookup(context, Mnil, nullptr, rest);
  AppendAndRelease(out, rest);
  if (context->preedit && mtext_len(context->preedit) > 0) mtext_cat(out, context->preedit);
  std::string text = Utf8(out);
  m17n_object_unref(out);
  minput_destroy_ic(context);
  return text;
}

std::u16string M17nInputMethod::Type(std::string_view keys) const { return text::Utf8ToUtf16(TypeUtf8(keys)); }

}  // namespace quilom::testing
