#include "host/qt/panels/NotesText.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QtGui/QTextDocument>
#include <chrono>
#include <string>

#include "fixtures/Sandbox.h"

namespace tarnwell::host_qt {
namespace {

std::string safe(const std::string& notes) {
  return safeNotes(QString::fromStdString(notes), QColor(0x12, 0x34, 0x56)).toStdString();
}

TEST(NotesTextTest, plainTextKeepsItsLines) {
  EXPECT_EQ(safe("One & two\n\nthree < four"), "<p>One &amp; two</p><p>three &lt; four</p>");
}

TEST(NotesTextTest, simpleMarkupStays) {
  EXPECT_EQ(safe("<h2>New</h2><p>A <b>bold</b> and <i>slanted</i> word</p><ul><li>one<li>two</ul>"),
            "<h4><b>New</b></h4><p>A <b>bold</b> and <i>slanted</i> word</p>"
            "<ul style=\"-qt-list-indent:1\"><li>one</li><li>two</li></ul>");
  EXPECT_EQ(safe("<ol><li>one</li></ol><p>end</p>"), "<ol style=\"-qt-list-indent:1\"><li>one</li></ol><p>end</p>");
}

TEST(NotesTextTest, linksLeadToWebPagesOnly) {
  EXPECT_EQ(safe("<p><a href=\"https://tarnwell.example/?a=1&amp;b=2\">notes</a></p>"),
            "<p><a href=\"https://tarnwell.example/?a=1&amp;b=2\" style=\"color:#123456\">notes</a></p>");
  for (const char* address : {"javascript:alert(1)", "file:///etc/passwd", "data:text/html,x", "smb://x/y",
                              "notes.html", "https:", "mailto:x@y.example", "\\\\x\\y"}) {
    EXPECT_EQ(safe("<p><a href='" + std::string(address) + "'>notes</a></p>"), "<p>notes</p>") << address;
  }
}

TEST(NotesTextTest, anAddressCannotBreakOutOfItsLink) {
  const std::string markup = safe("<p><a href='https://x.example/\"&gt;&lt;img src=y&gt;'>a</a></p>");
  EXPECT_EQ(markup.find("<img"), std::string::npos) << markup;
  EXPECT_EQ(markup.find("/\">"), std::string::npos) << markup;
}

TEST(NotesTextTest, scriptsStylesAndPicturesAreGone) {
  const std::string markup = safe(
      "<html><head><title>T</title><style>p { color: red }</style><script>run()</script></head><body "
      "bgcolor=black background='file:///x.png'><p style='color:red;background:url(https://x.example/a.png)' "
      "onclick='run()'>text<img src='https://x.example/b.png' alt='seen'></p><iframe src='https://x.example'>"
      "</iframe><script>document.write('<b>run</b>')</script></body></html>");
  EXPECT_EQ(markup, "<p>text</p>");
}

TEST(NotesTextTest, nothingIsReadFromTheDisk) {
  // A reader that opened it would wait for ever.
  const fixtures::Sandbox sandbox;
  const std::string pipe = (sandbox / "pipe").string();
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(safe("<head><link rel=stylesheet href='file://" + pipe + "'></head><p>text<img src='file://" + pipe +
                 "'><img src='" + pipe + "'></p>"),
            "<p>text</p>");
}

TEST(NotesTextTest, hostileNotesTakeLittleTime) {
  const auto began = std::chrono::steady_clock::now();
  for (const char* part :
       {"<b>", "<table><tr><td>", "<ul><li>", "<p><a href=x>", "&#x41;", "<", "<!--", "<div style='"}) {
    std::string notes = "<p>";
    while (notes.size() < 1'000'000) {
      notes += part;
    }
    EXPECT_LT(safe(notes).size(), 8U * 16 * 1024) << part;
  }
  EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

}  // namespace
}  // namespace tarnwell::host_qt
