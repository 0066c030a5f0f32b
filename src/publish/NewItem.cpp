#include "publish/NewItem.h"

#include <string_view>

#include "updater/feed/FeedNamespace.h"

namespace tarnwell::publish {
namespace {

std::string_view escapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\r':
      return "&#13;";
    default:
      return {};
  }
}

std::string escaped(std::string_view text) {
  std::string xml;
  for (const char c : text) {
    const std::string_view escape = escapeOf(c);
    xml += escape.empty() ? std::string_view(&c, 1) : escape;
  }
  return xml;
}

std::string element(const std::string& name, const std::string& text) {
  return text.empty() ? "" : "      <" + name + ">" + escaped(text) + "</" + name + ">\n";
}

std::string attribute(const std::string& name, const std::string& value) {
  return " " + name + "=\"" + escaped(value) + "\"";
}

std::string mediaType(const std::string& url) {
  return url.ends_with(".deb") ? "application/vnd.debian.binary-package" : "application/octet-stream";
}

}  // namespace

// The item declares the namespace itself, so that it does not depend on what the feed declares.
std::string NewItem::xml() const {
  return "<item" + attribute("xmlns:update", std::string(updater::feedExtensions)) +
         attribute("xmlns:tarnwell", std::string(updater::ownExtensions)) + ">\n" + element("title", title) +
         element("pubDate", publicationDate) + element("update:version", version) +
         element("update:shortVersionString", shownVersion) + element("update:channel", channel) +
         element("update:minimumSystemVersion", minimumSystemVersion) +
         (isCritical ? "      <update:criticalUpdate/>\n" : "") +
         element("tarnwell:releaseSignature", releaseSignature) + element("description", notes) + "      <enclosure" +
         attribute("url", url) + attribute("length", std::to_string(length)) + attribute("type", mediaType(url)) +
         attribute("update:os", "linux") + attribute("update:edSignature", signature) + "/>\n    </item>";
}

}  // namespace tarnwell::publish
