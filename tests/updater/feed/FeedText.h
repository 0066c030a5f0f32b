#pragma once

#include <string>

namespace tarnwell::updater {

/// `items` in a feed that gives the extensions the prefix "x".
inline std::string feedOf(const std::string& items) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<rss version=\"2.0\" xmlns:x=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel>" +
         items + "</channel></rss>";
}

}  // namespace tarnwell::updater
