#include "fuzz/Mutation.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarnwell::fuzz {
namespace {

constexpr std::size_t longestPart = 64;  // Bytes.
constexpr std::size_t longestInput = 20'000;
constexpr std::size_t mostChanges = 6;

// What parsers trip over.
constexpr std::array<std::string_view, 20> insertedPieces = {"<",
                                                             ">",
                                                             "/>",
                                                             "<item>",
                                                             "</item>",
                                                             "<!DOCTYPE a [",
                                                             "<![CDATA[",
                                                             "]]>",
                                                             "&#0;",
                                                             "&#x202e;",
                                                             "\"",
                                                             "'",
                                                             "=",
                                                             ".",
                                                             "99999999999999999999",
                                                             "-1",
                                                             std::string_view("\0", 1),
                                                             "\xff",
                                                             "\xe2\x80\xae",
                                                             "\n"};

}  // namespace

// Not a distribution of the library: each library has its own.
std::size_t Mutation::below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

std::string Mutation::partOf(const std::string& text) {
  return text.substr(below(text.size() + 1), below(longestPart) + 1);
}

void Mutation::change(std::string& text) {
  const std::size_t at = below(text.size() + 1);
  switch (below(6)) {
    case 0:
      if (at < text.size()) {
        text[at] = static_cast<char>(text[at] ^ (1 << below(8)));
      }
      break;
    case 1:
      text.erase(at, below(longestPart) + 1);
      break;
    case 2:
      text.insert(at, partOf(text));
      break;
    case 3:
      text.insert(at, partOf(seeds_.at(below(seeds_.size()))));
      break;
    case 4:
      text.insert(at, insertedPieces.at(below(insertedPieces.size())));
      break;
    default:
      text.resize(at);
      break;
  }
}

std::string Mutation::of(const std::string& seed) {
  std::string text = seed;
  for (std::size_t count = below(mostChanges) + 1; count > 0; --count) {
    change(text);
  }
  text.resize(std::min(text.size(), longestInput));
  return text;
}

}  // namespace tarnwell::fuzz
