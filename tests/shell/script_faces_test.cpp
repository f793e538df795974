#include "shell/script_faces.hpp"

#include <gtest/gtest.h>

namespace quilom::shell {
namespace {

using Faces = std::vector<std::u16string>;

TEST(ScriptFaces, LettersAreNamedByTheirScript) {
  EXPECT_EQ(ScriptNameOf(0x0BA4), u"Tamil");
  EXPECT_EQ(ScriptNameOf(0x0939), u"Devanagari");
  EXPECT_EQ(ScriptNameOf(0x0985), u"Bengali");  // the Assamese letter
  EXPECT_EQ(ScriptNameOf(0x03A9), u"Greek");
  EXPECT_EQ(ScriptNameOf(U'Q'), u"");
}

TEST(ScriptFaces, ScriptsOwnFacesComeFirstThenTheRestByName) {
  const Faces installed = {u"Tahoma", u"@Nirmala UI", u"Noto Serif Tamil",   u"Arial",      u"Noto Sans Tamil",
                           u"Latha",  u"Lohit Tamil", u"Noto Sans Tamil UI", u"Nirmala UI", u"Noto Sans Devanagari",
                           u"Tahoma"};
  EXPECT_EQ(FaceCandidates(0x0BA4, installed),
            (Faces{u"Nirmala UI", u"Latha", u"Noto Sans Tamil UI", u"Noto Sans Tamil", u"Noto Serif Tamil",
                   u"Lohit Tamil", u"Arial", u"Noto Sans Devanagari", u"Tahoma"}));
  EXPECT_EQ(FaceCandidates(0x0939, installed).front(), u"Nirmala UI");
  EXPECT_EQ(FaceCandidates(0x0939, installed)[1], u"Noto Sans Devanagari");
}

TEST(ScriptFaces, WithoutTheWindowsFacesTheFreeOnesLead) {
  // What a bare Wine prefix with Debian's fonts lists.
  const Faces installed = {u"Wine Tahoma", u"Lohit Tamil", u"DejaVu Sans", u"Noto Sans Tamil"};
  EXPECT_EQ(FaceCandidates(0x0BA4, installed),
            (Faces{u"Noto Sans Tamil", u"Lohit Tamil", u"DejaVu Sans", u"Wine Tahoma"}));
  // Greek has no Indic interface face: Nirmala UI gets no head start there.
  EXPECT_EQ(FaceCandidates(0x03A9, {u"Nirmala UI", u"Arial"}), (Faces{u"Arial", u"Nirmala UI"}));
  EXPECT_TRUE(FaceCandidates(0x0BA4, {}).empty());
}

}  // namespace
}  // namespace quilom::shell
