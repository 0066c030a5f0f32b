#include "updater/notes/Notes.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "release/text/PlainLine.h"
#include "release/text/WebAddress.h"

namespace tarnwell::updater {
namespace {

using Style = release::NotesParagraph::Style;

enum class Kind {
  text,
  block,
  heading,
  list,
  numberedList,
  item,
  quote,
  code,
  bold,
  italic,
  mono,
  link,
  cell,
  lineEnd,
  unseen
};

/// What elements are to us, by their names with a blank on either side. Of those that stand in no row there is the
/// text.
struct Elements {
  Kind kind = Kind::text;
  std::string_view names = {};
};

constexpr std::array elements = {
    Elements{Kind::block, " p div section article header footer main table caption tr dl dt dd hr "},
    Elements{Kind::heading, " h1 h2 h3 h4 h5 h6 "},
    Elements{Kind::list, " ul menu "},
    Elements{Kind::numberedList, " ol "},
    Elements{Kind::item, " li "},
    Elements{Kind::quote, " blockquote "},
    Elements{Kind::code, " pre "},
    Elements{Kind::bold, " b strong "},
    Elements{Kind::italic, " i em cite "},
    Elements{Kind::mono, " code kbd samp tt "},
    Elements{Kind::link, " a "},
    Elements{Kind::cell, " td th "},
    Elements{Kind::lineEnd, " br "},
    Elements{Kind::unseen, " head script style template title noscript iframe object svg math select textarea "}};

std::string_view textOf(const xmlChar* text) { return text == nullptr ? "" : reinterpret_cast<const char*>(text); }

Kind kindOf(const xmlNode& element) {
  const std::string name = " " + std::string(textOf(element.name)) + " ";
  const auto* found = std::find_if(elements.begin(), elements.end(),
                                   [&name](const Elements& e) { return e.names.find(name) != std::string::npos; });
  return found == elements.end() ? Kind::text : found->kind;
}

bool isBlock(Kind kind) { return kind >= Kind::block && kind <= Kind::code; }

std::string addressIn(const xmlNode& link) {
  const auto* name = reinterpret_cast<const xmlChar*>("href");
  const std::unique_ptr<xmlChar, void (*)(void*)> value(::xmlGetProp(&link, name), ::xmlFree);
  const std::string_view address = textOf(value.get());
  return release::isWebAddress(address) ? std::string(address) : "";
}

class Reader {
 public:
  release::ReleaseNotes takeNotes() { return std::move(notes_); }

  void readLines(std::string_view text) {
    while (!text.empty() && !isFull()) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      write(text.substr(0, end), {});
      isOpen_ = false;
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }

  void readDocument(const xmlDoc& document) {
    if (document.children != nullptr) {
      readSiblings(document.children, {});
    }
  }

 private:
  struct List {
    bool isNumbered = false;
    unsigned count = 0;
  };

  /// What the elements around a text say of it.
  struct Place {
    release::NotesParagraph paragraph = {};
    release::NotesRun run = {};
    unsigned depth = 0;
    List* list = nullptr;
    bool* isItemBegun = nullptr;
  };

  // How deep elements may stand in each other is limited by the library.
  void readSiblings(const xmlNode* first, const Place& place) {
    for (const xmlNode* node = first; node != nullptr && !isFull(); node = node->next) {
      if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
        write(textOf(node->content), place);
      } else if (node->type == XML_ELEMENT_NODE) {
        read(*node, place);
      }
    }
  }

  void read(const xmlNode& element, Place place) {
    const Kind kind = kindOf(element);
    if (kind == Kind::unseen) {
      return;
    }
    if (kind == Kind::lineEnd) {
      return part("\n", place);
    }
    if (kind == Kind::cell && !endsInBlank_) {
      part(" ", place);
    }
    isOpen_ = isOpen_ && !isBlock(kind);
    List list = {.isNumbered = kind == Kind::numberedList};
    bool isItemBegun = false;
    if (kind == Kind::list || kind == Kind::numberedList) {
      place.list = &list;
      ++place.depth;
    } else if (kind == Kind::item) {
      place.isItemBegun = &isItemBegun;
    }
    enter(element, kind, place);
    readSiblings(element.children, place);
    isOpen_ = isOpen_ && !isBlock(kind);
  }

  static void enter(const xmlNode& element, Kind kind, Place& place) {
    if (kind == Kind::heading) {
      place.paragraph = {.style = Style::heading, .level = static_cast<unsigned>(textOf(element.name).back() - '0')};
    } else if (kind == Kind::item) {
      const bool isNumbered = place.list != nullptr && place.list->isNumbered;
      place.paragraph = {
          .style = Style::item, .level = std::max(place.depth, 1U), .number = isNumbered ? ++place.list->count : 0};
    } else if (kind == Kind::quote || kind == Kind::code) {
      place.paragraph = {.style = kind == Kind::quote ? Style::quote : Style::code};
    }
    place.run.isBold = place.run.isBold || kind == Kind::bold;
    place.run.isItalic = place.run.isItalic || kind == Kind::italic;
    place.run.isCode = place.run.isCode || kind == Kind::mono;
    if (kind == Kind::link) {
      place.run.link = addressIn(element);
    }
  }

  /// What follows from what stands before it.
  void part(const char* between, const Place& place) {
    if (isOpen_) {
      tell(between, place);
    }
  }

  bool isFull() const {
    return length_ >= longestNotes || notes_.size() == release::NotesReader::maximumParagraphs ||
           runs_ == release::NotesReader::maximumRuns;
  }

  void write(std::string_view text, const Place& place) {
    const bool isCode = place.paragraph.style == Style::code;
    text = text.substr(0, longestNotes);
    std::string shown = isCode ? release::visibleLines(text) : release::visibleText(text);
    if (!isOpen_ || endsInBlank_) {
      shown.erase(0, isCode ? 0 : shown.find_first_not_of(' '));
    }
    if (!shown.empty()) {
      begin(place);
      tell(std::move(shown), place);
    }
  }

  // What follows the first paragraph of an item stands below it, and has no mark of its own.
  void begin(const Place& place) {
    if (std::exchange(isOpen_, true)) {
      return;
    }
    release::NotesParagraph& paragraph = notes_.emplace_back(place.paragraph);
    if (paragraph.style == Style::item && place.isItemBegun != nullptr && std::exchange(*place.isItemBegun, true)) {
      paragraph.style = Style::body;
      paragraph.number = 0;
    }
  }

  void tell(std::string text, const Place& place) {
    endsInBlank_ = text.back() == ' ' || text.back() == '\n';
    length_ += text.size();
    auto& runs = notes_.back().runs;
    release::NotesRun run = place.run;
    if (links_ == release::NotesReader::maximumLinks) {
      run.link.clear();
    }
    if (runs.empty() || !runs.back().looksLike(run)) {
      links_ += run.link.empty() ? 0 : 1;
      ++runs_;
      runs.push_back(std::move(run));
    }
    runs.back().text += text;
  }

  release::ReleaseNotes notes_;
  std::size_t length_ = 0;
  std::size_t runs_ = 0;
  std::size_t links_ = 0;
  bool isOpen_ = false;  // A paragraph is.
  bool endsInBlank_ = false;
};

bool looksLikeHtml(std::string_view notes) {
  const std::size_t tag = notes.find('<');
  const char next = tag < notes.size() - 1 ? notes[tag + 1] : ' ';
  const bool isName = (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z') || next == '!' || next == '/';
  return isName && notes.find('>', tag) != std::string_view::npos;
}

}  // namespace

release::ReleaseNotes readNotes(std::string_view notes) {
  Reader reader;
  if (notes.empty() || !looksLikeHtml(notes)) {
    reader.readLines(notes);
    return reader.takeNotes();
  }
  constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING;
  const std::unique_ptr<xmlDoc, decltype(&::xmlFreeDoc)> document(
      ::htmlReadMemory(notes.data(), static_cast<int>(notes.size()), nullptr, "UTF-8", options), &::xmlFreeDoc);
  if (document) {
    reader.readDocument(*document);
  }
  return reader.takeNotes();
}

}  // namespace tarnwell::updater
