#pragma once

#include <functional>
#include <string>
#include <vector>

#include "release/protocol/Message.h"

namespace tarnwell::release {

struct NotesRun {
  /// Visible text. Line ends stand for themselves; blanks in a row are one space, but for those in code.
  std::string text = {};
  bool isBold = false;
  bool isItalic = false;
  bool isCode = false;
  std::string link = {};  // The web page that it leads to; empty as a rule.

  bool looksLike(const NotesRun& other) const {
    return isBold == other.isBold && isItalic == other.isItalic && isCode == other.isCode && link == other.link;
  }
};

struct NotesParagraph {
  enum class Style { body, heading, item, quote, code };

  Style style = Style::body;
  unsigned level = 0;   // Of a heading, from 1 to 6; of an item the lists that it stands in.
  unsigned number = 0;  // Of an item in a numbered list; 0 in one with bullets.
  std::vector<NotesRun> runs = {};
};

/// What is new in a version, in the form in which it is shown.
using ReleaseNotes = std::vector<NotesParagraph>;

/// Says them, a line for each paragraph, run and link.
void sayNotes(const ReleaseNotes& notes, const std::function<void(const Message&)>& say);

/// Makes notes of such lines.
class NotesReader {
 public:
  static constexpr std::size_t maximumParagraphs = 1000;
  static constexpr std::size_t maximumRuns = 2000;
  static constexpr std::size_t maximumLinks = 100;           // Runs with one.
  static constexpr std::size_t maximumLength = 64UL * 1024;  // Bytes of text.

  /// False for what is no line of notes, is one too many, or holds what is not seen.
  bool take(const Message& message);
  ReleaseNotes takeNotes() { return std::move(notes_); }

 private:
  ReleaseNotes notes_;
  std::size_t length_ = 0;
  std::size_t runs_ = 0;
  std::size_t links_ = 0;
};

}  // namespace tarnwell::release
