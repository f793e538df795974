#include "shell/help_fallback.hpp"

#include <gtest/gtest.h>

#include "support/temp_folder.hpp"
#include "text/strings.hpp"
#include "text/utf.hpp"

namespace quilom::shell {
namespace {

TEST(HelpFallback, AnyFailureWithThePagePresentIsShownInside) {
  struct Case {
    std::intptr_t result;
    bool exists;
    HelpOpening expected;
  };
  const Case cases[] = {
      {42, true, HelpOpening::Opened},     {33, false, HelpOpening::Opened},
      {32, true, HelpOpening::ShowInside}, {31, true, HelpOpening::ShowInside},  // no program is associated
      {27, true, HelpOpening::ShowInside}, {0, true, HelpOpening::ShowInside},
      {2, true, HelpOpening::ShowInside},  // the associated viewer's program is gone
      {2, false, HelpOpening::Missing},    {3, false, HelpOpening::Missing},
      {31, false, HelpOpening::Missing},
  };
  for (const Case& c : cases) EXPECT_EQ(HelpOpeningFor(c.result, c.exists), c.expected) << c.result << c.exists;
}

TEST(HelpFallback, PlainTextKeepsBlocksOnTheirOwnLines) {
  EXPECT_EQ(HelpPlainText(u"<html><head><title>T</title><style>p{color:red}</style></head>"
                          u"<body><h1>Start\n   here</h1><p>Press <b>Alt</b>+F12</p><ul><li>one</li><li>two"
                          u"</li></ul><script>var a = '<p>';</script></body></html>"),
            u"Start here\r\nPress Alt+F12\r\none\r\ntwo");
}

TEST(HelpFallback, ReferencesAreRead) {
  EXPECT_EQ(HelpPlainText(u"<p>a &amp; b &lt;c&gt; &#2965;&#x0BBE; &#x1F600; &bogus; & x</p>"),
            u"a & b <c> \u0B95\u0BBE \U0001F600 &bogus; & x");
  // A surrogate or a number past Unicode's end reads as the replacement character.
  EXPECT_EQ(HelpPlainText(u"<p>&#xD800;&#99999999;</p>"), u"\uFFFD\uFFFD");
}

TEST(HelpFallback, ChartTextsComeOnePerLine) {
  EXPECT_EQ(HelpPlainText(u"<?xml version=\"1.0\"?><svg><rect/><text x=\"1\">k</text>"
                          u"<text x=\"2\">\u0B95</text><!-- note --></svg>"),
            u"k\r\n\u0B95");
}

TEST(HelpFallback, ShippedPagesReadAsTextWithoutMarkup) {
  const auto help = testing::SourceDataRoot() / "Indic Direct Typer" / "help";
  for (const auto& file : {help / "getting-started.html", help / "charts" / "Tamil-Unicode-TamilNet99.svg"}) {
    const std::u16string shown = HelpPlainText(text::Utf8ToUtf16(testing::ReadBytes(file)));
    EXPECT_GT(shown.size(), 100u) << file;
    // A key written "&lt;" on the chart is the "<" key; no tag may be left over.
    for (const char16_t* tag : {u"<text", u"<rect", u"<p>", u"<svg", u"</"})
      EXPECT_EQ(shown.find(tag), std::u16string::npos) << file;
    EXPECT_EQ(shown.find(u"font-size"), std::u16string::npos) << file;
  }
  const std::u16string page = HelpPlainText(text::Utf8ToUtf16(testing::ReadBytes(help / "getting-started.html")));
  EXPECT_TRUE(text::StartsWith(page, u"Start typing Tamil in three steps\r\n"))
      << text::Utf16ToUtf8(page.substr(0, 80));
}

}  // namespace
}  // namespace quilom::shell
