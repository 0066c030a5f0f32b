#include "updater/transfer/Download.h"

#include <curl/curl.h>

#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "diagnostics/Fault.h"
#include "updater/transfer/CurlFailure.h"

namespace tarnwell::updater {
namespace {

constexpr long mostRedirects = 5;
constexpr long complete = 200;
constexpr curl_off_t longestAside = 65'536;  // Bytes; of what comes along with a redirect.

class Transfer {
 public:
  Transfer(const Download& download, const Received& received) : download_(download), received_(received) {
    if (handle_ == nullptr) {
      diagnostics::fault("the network library has no handle left");
    }
    restrict();
    limit();
    connect();
  }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  system::Result<void> run() {
    const CURLcode code = ::curl_easy_perform(handle_.get());
    if (refusal_) {
      return *refusal_;
    }
    return code == CURLE_OK && status() == complete ? system::Result<void>() : failure(code);
  }

 private:
  // An option that the library does not know would be a limit that is not kept.
  template <class Value>
  void set(CURLoption option, Value value) {
    if (::curl_easy_setopt(handle_.get(), option, value) != CURLE_OK) {
      diagnostics::fault("the network library does not take an option");
    }
  }

  void restrict() {
    set(CURLOPT_PROTOCOLS_STR, "https");
    set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, mostRedirects);
    set(CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
    set(CURLOPT_SSL_VERIFYPEER, 1L);
    set(CURLOPT_SSL_VERIFYHOST, 2L);
    if (!download_.authorities.empty()) {
      set(CURLOPT_CAINFO, download_.authorities.c_str());
      set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    }
    set(CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
    set(CURLOPT_NETRC, long{CURL_NETRC_IGNORED});
    set(CURLOPT_FAILONERROR, 1L);
    // Bytes as they lie on the server: a small file must not become a large one here.
    set(CURLOPT_HTTP_CONTENT_DECODING, 0L);
    set(CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
    set(CURLOPT_USERAGENT, download_.userAgent.c_str());
  }

  void limit() {
    using std::chrono::milliseconds;
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(download_.maximumLength));
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(milliseconds(download_.connectLimit).count()));
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(download_.limit.count()));
    set(CURLOPT_LOW_SPEED_LIMIT, download_.leastSpeed);
    set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(download_.stallLimit.count()));
    set(CURLOPT_NOSIGNAL, 1L);
  }

  void connect() {
    set(CURLOPT_URL, download_.address.c_str());
    set(CURLOPT_ERRORBUFFER, error_.data());
    set(CURLOPT_WRITEFUNCTION, &bytesCame);
    set(CURLOPT_WRITEDATA, static_cast<void*>(this));
    set(CURLOPT_NOPROGRESS, 0L);
    set(CURLOPT_XFERINFOFUNCTION, &progressed);
    set(CURLOPT_XFERINFODATA, static_cast<void*>(this));
  }

  static std::size_t bytesCame(char* bytes, std::size_t one, std::size_t count, void* transfer) {
    const std::size_t length = one * count;
    return static_cast<Transfer*>(transfer)->take({bytes, length}) ? length : CURL_WRITEFUNC_ERROR;
  }

  bool take(std::string_view bytes) {
    // What comes along with any other answer is not what was asked for.
    if (status() != complete) {
      return false;
    }
    isTooLong_ = bytes.size() > download_.maximumLength - length_;
    if (isTooLong_) {
      return false;
    }
    length_ += bytes.size();
    if (auto taken = received_(bytes); !taken) {
      refusal_ = taken.error();
    }
    return !refusal_;
  }

  /// The library reads what comes along with a redirect, however much it is, and keeps it to itself.
  static int progressed(void* transfer, curl_off_t /*whole*/, curl_off_t come, curl_off_t /*all*/,
                        curl_off_t /*sent*/) {
    auto& self = *static_cast<Transfer*>(transfer);
    self.isTooLong_ = self.isTooLong_ || (come > longestAside && self.status() != complete);
    return self.isTooLong_ ? 1 : 0;
  }

  long status() const {
    long status = 0;
    ::curl_easy_getinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &status);
    return status;
  }

  /// The last of those that the server redirected to.
  std::string address() const {
    const char* last = nullptr;
    ::curl_easy_getinfo(handle_.get(), CURLINFO_EFFECTIVE_URL, &last);
    return last == nullptr || *last == '\0' ? download_.address : last;
  }

  system::Failure failure(CURLcode code) const {
    if (isTooLong_) {
      code = CURLE_FILESIZE_EXCEEDED;
    } else if (code == CURLE_OK || (code == CURLE_WRITE_ERROR && status() != complete)) {
      code = CURLE_HTTP_RETURNED_ERROR;
    }
    // Of a redirect that is refused, the server that redirects is to blame.
    const std::string blamed = code == CURLE_UNSUPPORTED_PROTOCOL ? download_.address : address();
    const std::string detail = error_.front() == '\0' ? ::curl_easy_strerror(code) : error_.data();
    return transferFailure(code, blamed, detail, status());
  }

  const Download& download_;
  const Received& received_;
  std::unique_ptr<CURL, decltype(&::curl_easy_cleanup)> handle_{::curl_easy_init(), &::curl_easy_cleanup};
  std::uint64_t length_ = 0;
  bool isTooLong_ = false;
  std::optional<system::Failure> refusal_;
  std::array<char, CURL_ERROR_SIZE> error_ = {};
};

}  // namespace

system::Result<void> fetch(const Download& download, const Received& received) {
  return Transfer(download, received).run();
}

}  // namespace tarnwell::updater
