#include "updater/notes/Notes.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>

namespace tarnwell::updater {
namespace {

/// "h2[..]", "li1[..]", "2.li1[..]" and the like, a paragraph behind the other, marked up as its runs are.
std::string shown(const std::string& notes) {
  constexpr std::array names = {"p", "h", "li", "q", "code"};
  std::string text;
  for (const auto& paragraph : readNotes(notes)) {
    text += paragraph.number == 0 ? "" : std::to_string(paragraph.number) + ".";
    text += names.at(static_cast<std::size_t>(paragraph.style));
    text += (paragraph.level == 0 ? "" : std::to_string(paragraph.level)) + "[";
    for (const auto& run : paragraph.runs) {
      const std::string marks =
          std::string(run.isBold ? "b" : "") + (run.isItalic ? "i" : "") + (run.isCode ? "c" : "");
      text += marks.empty() ? run.text : marks + "(" + run.text + ")";
      text += run.link.empty() ? "" : "<" + run.link + ">";
    }
    text += "]";
  }
  return text;
}

TEST(Notes, ofPlainTextAreItsLines) {
  EXPECT_EQ(shown("One line.\n\n  Another,  with   blanks \r\nlast"), "p[One line.]p[Another, with blanks ]p[last]");
  EXPECT_EQ(shown("1 < 2 and 3 > 2"), "p[1 < 2 and 3 > 2]");
  EXPECT_EQ(shown(""), "");
  EXPECT_EQ(shown(" \n \n"), "");
}

TEST(Notes, areMarkedUpWhereATagOfAnyNameStandsFirst) {
  for (const std::string name : {"a", "z", "A", "Z", "/b"}) {
    EXPECT_EQ(shown("<" + name + ">text"), "p[text]") << name;
  }
  EXPECT_EQ(shown("<!-- unseen -->text"), "p[text]");
  for (const std::string name : {"`", "{", "@", "[", "1", " b"}) {
    EXPECT_EQ(shown("<" + name + ">text"), "p[<" + name + ">text]");
  }
}

TEST(Notes, haveParagraphsHeadingsQuotesAndCode) {
  EXPECT_EQ(shown("<h1>New</h1><p>One\n  two</p><div>three<p>four</div>five"),
            "h1[New]p[One two]p[three]p[four]p[five]");
  EXPECT_EQ(shown("<blockquote>as <i>said</i></blockquote>after"), "q[as i(said)]p[after]");
  EXPECT_EQ(shown("<pre>  a\n\tb  c</pre>"), "code[  a\n    b  c]");
  EXPECT_EQ(shown("one<br>two<p><br>three"), "p[one\ntwo]p[three]");
}

TEST(Notes, haveEmphasisWithinEmphasis) {
  EXPECT_EQ(shown("a <b>b <em>c</em></b> <code>d</code>"), "p[a b(b )bi(c) c(d)]");
  EXPECT_EQ(shown("<p>blanks <b> meet</b> here"), "p[blanks b(meet) here]");
}

TEST(Notes, haveListsWithinLists) {
  EXPECT_EQ(shown("<ul><li>one<li>two<ol><li>a</li><li>b</li></ol></li><li>three</ul>"),
            "li1[one]li1[two]1.li2[a]2.li2[b]li1[three]");
  EXPECT_EQ(shown("<ol><li><p>first</p><p>its second</p><li>next</ol>"), "1.li1[first]p1[its second]2.li1[next]");
  EXPECT_EQ(shown("<li>alone"), "li1[alone]");
}

TEST(Notes, areOneRunWhereTheyLookAlike) {
  EXPECT_EQ(readNotes("<b>one</b><strong> two</strong>").at(0).runs.size(), 1U);
  EXPECT_EQ(readNotes("<a href='https://updates.invalid/'>one <u>two</u><br>three</a>").at(0).runs.size(), 1U);
}

TEST(Notes, haveAsManyRunsAndLinksAsPeopleRead) {
  std::string runs;
  std::string links;
  for (int count = 0; count < 3000; ++count) {
    runs += "<b>x</b>y";
    links += "<a href='https://updates.invalid/" + std::to_string(count) + "'>x</a>";
  }
  EXPECT_EQ(readNotes(runs).at(0).runs.size(), release::NotesReader::maximumRuns);
  // What follows the last one is text.
  EXPECT_EQ(readNotes(links).at(0).runs.size(), release::NotesReader::maximumLinks + 1);
}

TEST(Notes, leadToPagesOfTheWebAlone) {
  EXPECT_EQ(shown("<a href='https://updates.invalid/x?a=1&amp;b=2'>here</a>"),
            "p[here<https://updates.invalid/x?a=1&b=2>]");
  for (const char* address : {"file:///etc/passwd", "javascript:alert(1)", "/relative", "", "https://"}) {
    EXPECT_EQ(shown(std::string("<a href='") + address + "'>here</a>"), "p[here]") << address;
  }
}

TEST(Notes, areTheTextAloneOfWhatIsNotLetThrough) {
  EXPECT_EQ(shown("<font color=red>red</font> <u>line</u><img src='https://updates.invalid/x'>"), "p[red line]");
  EXPECT_EQ(
      shown("<html><head><title>t</title><style>p{}</style></head><body>a<script>alert(1)</script>b</body></html>"),
      "p[ab]");
  EXPECT_EQ(shown("<table><tr><td>one</td><td>two</td></tr><tr><td>three</table>"), "p[one two]p[three]");
  EXPECT_EQ(shown("<iframe src=x>no</iframe><svg><text>no</text></svg><!-- no --><b>yes</b>"), "p[b(yes)]");
}

TEST(Notes, showNothingThatIsNotSeen) {
  EXPECT_EQ(shown("<b>a\xe2\x80\xae"
                  "b\xe2\x80\x8b</b>"),
            "p[b(ab)]");
  EXPECT_EQ(shown("<p>&#8238;&#7;x"), "p[x]");
  EXPECT_EQ(shown("<p>a\xff"
                  "b"),
            shown("<p>a\xff"
                  "b"));
}

TEST(Notes, areShownInPartWhereThereIsMoreThanPeopleRead) {
  EXPECT_EQ(shown("<p>" + std::string(200'000, 'x')).size(), longestNotes + 3);
  std::string lines;
  for (int line = 0; line < 100'000; ++line) {
    lines += "x\n";
  }
  EXPECT_EQ(readNotes(lines).size(), release::NotesReader::maximumParagraphs);
  std::string many;
  for (int line = 0; line < 10'000; ++line) {
    many += "<p>a line that is a little longer</p>";
  }
  std::size_t length = 0;
  for (const auto& paragraph : readNotes(many)) {
    length += paragraph.runs.front().text.size();
  }
  EXPECT_GE(length, longestNotes);
  EXPECT_LE(length, longestNotes + 100);
}

TEST(Notes, takeLittleTimeWhateverIsInThem) {
  const auto began = std::chrono::steady_clock::now();
  std::string rows = "<table>";
  std::string deep;
  std::string open;
  for (int count = 0; count < 10'000; ++count) {
    rows += "<tr><td colspan=20000 rowspan=20000>x";
    deep += "<b><ul><li>";
    open += "<a href=";
  }
  for (const std::string& notes :
       {rows, deep, open, std::string(250'000, '<') + ">", "<x" + std::string(250'000, ' ') + ">"}) {
    readNotes(notes);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(20));
}

}  // namespace
}  // namespace tarnwell::updater
