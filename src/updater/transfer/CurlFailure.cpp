#include "updater/transfer/CurlFailure.h"

#include "release/text/PlainLine.h"
#include "release/text/WebAddress.h"

namespace tarnwell::updater {
namespace {

std::string serverOf(const std::string& address) {
  const std::string host = release::hostIn(address);
  return host.empty() ? "the server" : "the server " + host;
}

std::string beginning(std::string text) {
  text.front() = text.front() == 't' ? 'T' : text.front();
  return text;
}

// The library's words on a certificate, without its own heading.
std::string reason(std::string_view detail) {
  constexpr std::string_view heading = "SSL certificate problem: ";
  constexpr std::string_view other = "SSL: ";
  for (const auto start : {heading, other}) {
    if (detail.substr(0, start.size()) == start) {
      detail.remove_prefix(start.size());
    }
  }
  return " (" + std::string(detail) + ")";
}

std::string insecure(const std::string& address) {
  const std::string what = release::isSecureAddress(address)
                               ? beginning(serverOf(address)) + " redirects to an address that"
                               : "The address " + address;
  return what + " is not secure. Updates are fetched over HTTPS only.";
}

std::string sentence(CURLcode code, const std::string& address, std::string_view detail, long status) {
  const std::string server = beginning(serverOf(address));
  switch (code) {
    case CURLE_UNSUPPORTED_PROTOCOL:
      return insecure(address);
    case CURLE_URL_MALFORMAT:
    case CURLE_LOGIN_DENIED:
      return "\"" + address + "\" is not an address that updates can be fetched from.";
    case CURLE_COULDNT_RESOLVE_HOST:
      return server + " cannot be found. Is this computer connected to the Internet?";
    case CURLE_COULDNT_RESOLVE_PROXY:
      return "The proxy cannot be found.";
    case CURLE_COULDNT_CONNECT:
      return server + " cannot be reached.";
    case CURLE_OPERATION_TIMEDOUT:
      return server + " takes too long to answer.";
    case CURLE_PEER_FAILED_VERIFICATION:
      return server + " could not prove its identity" + reason(detail) + ".";
    case CURLE_SSL_CONNECT_ERROR:
      return "A secure connection could not be made: " + serverOf(address) + " does not offer one.";
    case CURLE_TOO_MANY_REDIRECTS:
      return server + " redirects too often.";
    case CURLE_FILESIZE_EXCEEDED:
      return server + " sends more than it should.";
    case CURLE_HTTP_RETURNED_ERROR:
      return server + " answered with error " + std::to_string(status) + ".";
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_GOT_NOTHING:
      return "The connection to " + serverOf(address) + " was lost.";
    default:
      return server + " could not be asked: " + std::string(detail) + ".";
  }
}

}  // namespace

// A server or a feed made up addresses and details, and they end up on the screen.
system::Failure transferFailure(CURLcode code, const std::string& address, std::string_view detail, long status) {
  constexpr std::size_t longestAddress = 200;
  constexpr std::size_t longestSentence = 1000;
  return {
      release::plainLine(sentence(code, release::plainLine(address, longestAddress), detail, status), longestSentence)};
}

}  // namespace tarnwell::updater
