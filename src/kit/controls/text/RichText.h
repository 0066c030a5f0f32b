#pragma once

#include <functional>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// Paragraphs of text in which words stand out. Nothing in it names anything that would be loaded.
struct StyledText {
  struct Run {
    std::string text = {};  ///< Line ends stand for themselves.
    bool isBold = false;
    bool isItalic = false;
    bool isCode = false;
    std::string link = {};  ///< Where it leads; empty as a rule.
    friend bool operator==(const Run&, const Run&) = default;
  };
  struct Paragraph {
    enum class Style { body, heading, item, quote, code };

    Style style = Style::body;
    unsigned level = 0;   ///< Of a heading, from 1 to 6; of an item the lists that it stands in.
    unsigned number = 0;  ///< Of an item in a numbered list; 0 in one with bullets.
    std::vector<Run> runs = {};

    /// Runs in a row that lead to the same place are one link.
    bool beginsLink(std::size_t run) const {
      return !runs[run].link.empty() && (run == 0 || runs[run - 1].link != runs[run].link);
    }
    friend bool operator==(const Paragraph&, const Paragraph&) = default;
  };

  std::vector<Paragraph> paragraphs = {};
  friend bool operator==(const StyledText&, const StyledText&) = default;
};

/// A text to read, as high as its width makes it. Links are its parts: choosing one follows it.
class RichText final : public Control {
 public:
  const StyledText& text() const { return text_; }
  void setText(StyledText text);

  /// Told where the user wants to go.
  void setLinkAction(std::function<void(const std::string& link)> follow) { follow_ = std::move(follow); }

  /// What stands in a paragraph, without its styles; in front of an item its mark.
  static std::string plainText(const StyledText::Paragraph& paragraph);
  /// A paragraph a line.
  std::string plainText() const;

  /// The user's doing: the link of that number, counted from 0. Nothing where there is none.
  void follow(int link);

  AnyControl any() override { return this; }
  std::vector<AccessiblePart> accessibleParts() const override;
  bool takesFocus() const override { return !links_.empty(); }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override { follow(request.part); }
  std::vector<Aspect> aspects() const override { return {Aspect::title}; }

 private:
  struct Link {
    std::string name = {};
    std::string address = {};
  };

  void findLinks();

  StyledText text_;
  std::vector<Link> links_;
  std::function<void(const std::string&)> follow_;
};

}  // namespace tarnwell::kit
