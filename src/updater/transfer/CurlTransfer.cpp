#include "updater/transfer/CurlTransfer.h"

#include <sys/socket.h>

#include <array>
#include <string>
#include <utility>

#include "diagnostics/Fault.h"
#include "system/Descriptor.h"
#include "updater/transfer/CurlFailure.h"

namespace tarnwell::updater {
namespace {

constexpr long mostRedirects = 5;
constexpr long complete = 200;
constexpr curl_off_t longestAside = 65'536;  // Bytes; of what comes along with a redirect.

CURL* newHandle(const CurlLibrary& curl) {
  CURL* handle = curl.easyInit();
  if (handle == nullptr) {
    diagnostics::fault("the network library has no handle left");
  }
  return handle;
}

// The library's own sockets would be open in the programs that we start.
curl_socket_t openSocket(void* /*state*/, curlsocktype /*purpose*/, curl_sockaddr* address) {
  return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

}  // namespace

struct CurlTransfer::State {
  Transport::Request request = {};
  Transport::Received received = {};
  const CurlLibrary* curl = nullptr;
  CURL* handle = nullptr;
  std::uint64_t length = 0;
  bool isTooLong = false;
  bool isStopped = false;  // By `received`, or because the transfer was destroyed.
  std::array<char, CURL_ERROR_SIZE> error = {};

  long status() const {
    long status = 0;
    curl->easyGetinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    return status;
  }

  /// The last of those that the server redirected to.
  std::string address() const {
    const char* last = nullptr;
    curl->easyGetinfo(handle, CURLINFO_EFFECTIVE_URL, &last);
    return last == nullptr || *last == '\0' ? request.address : last;
  }

  std::string_view detail(CURLcode code) const {
    return error.front() == '\0' ? curl->easyStrerror(code) : error.data();
  }

  bool take(std::string_view bytes) {
    // What comes along with any other answer is not what was asked for.
    if (isStopped || status() != complete) {
      return false;
    }
    isTooLong = bytes.size() > request.maximumLength - length;
    if (isTooLong) {
      return false;
    }
    length += bytes.size();
    isStopped = !received(bytes) || isStopped;
    return !isStopped;
  }

  /// The library reads what comes along with a redirect, however much it is, and keeps it to itself.
  static int progressed(void* state, curl_off_t /*whole*/, curl_off_t come, curl_off_t /*all*/, curl_off_t /*sent*/) {
    auto& self = *static_cast<State*>(state);
    self.isTooLong = self.isTooLong || (come > longestAside && self.status() != complete);
    return self.isTooLong ? 1 : 0;
  }

  static std::size_t bytesCame(char* bytes, std::size_t one, std::size_t count, void* state) {
    const std::size_t length = one * count;
    return static_cast<State*>(state)->take({bytes, length}) ? length : CURL_WRITEFUNC_ERROR;
  }
};

CurlTransfer::CurlTransfer(std::shared_ptr<CurlLoop> loop, const CurlTransport::Settings& settings,
                           const Transport::Request& request, Transport::Received received,
                           Transport::Finished finished)
    : loop_(std::move(loop)), state_(std::make_shared<State>()), finished_(std::move(finished)) {
  state_->request = request;
  state_->received = std::move(received);
  state_->curl = &loop_->library();
  state_->handle = newHandle(*state_->curl);
  handle_ = CurlHandle(state_->handle, CurlHandleEnd{state_->curl->easyCleanup, state_});
  restrict(settings);
  limit(settings);
  connect();
  loop_->add(handle_.get(), [this](CURLcode code) { ended(code); });
}

CurlTransfer::~CurlTransfer() {
  if (handle_) {
    state_->isStopped = true;
    loop_->remove(std::move(handle_));
  }
}

// An option that the library does not know would be a limit that is not kept.
template <class Value>
void CurlTransfer::set(CURLoption option, Value value) {
  if (state_->curl->easySetopt(handle_.get(), option, value) != CURLE_OK) {
    diagnostics::fault("the network library does not take an option");
  }
}

void CurlTransfer::restrict(const CurlTransport::Settings& settings) {
  set(CURLOPT_PROTOCOLS_STR, "https");
  set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
  set(CURLOPT_FOLLOWLOCATION, 1L);
  set(CURLOPT_MAXREDIRS, mostRedirects);
  set(CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
  set(CURLOPT_SSL_VERIFYPEER, 1L);
  set(CURLOPT_SSL_VERIFYHOST, 2L);
  if (!settings.authorities.empty()) {
    set(CURLOPT_CAINFO, settings.authorities.c_str());
    set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
  }
  set(CURLOPT_DISALLOW_USERNAME_IN_URL, 1L);
  set(CURLOPT_NETRC, long{CURL_NETRC_IGNORED});
  set(CURLOPT_FAILONERROR, 1L);
  // Bytes as they lie on the server: a small file must not become a large one here.
  set(CURLOPT_HTTP_CONTENT_DECODING, 0L);
  set(CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
  set(CURLOPT_USERAGENT, settings.userAgent.c_str());
}

void CurlTransfer::limit(const CurlTransport::Settings& settings) {
  using std::chrono::milliseconds;
  set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(state_->request.maximumLength));
  set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(milliseconds(settings.connectLimit).count()));
  set(CURLOPT_TIMEOUT_MS, static_cast<long>(state_->request.limit.count()));
  set(CURLOPT_LOW_SPEED_LIMIT, settings.leastSpeed);
  set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(settings.stallLimit.count()));
  set(CURLOPT_NOSIGNAL, 1L);
  // To cancel while a name is being looked up does not wait for the answer.
  set(CURLOPT_QUICK_EXIT, 1L);
  set(CURLOPT_FORBID_REUSE, 1L);
}

void CurlTransfer::connect() {
  set(CURLOPT_URL, state_->request.address.c_str());
  set(CURLOPT_ERRORBUFFER, state_->error.data());
  set(CURLOPT_WRITEFUNCTION, &State::bytesCame);
  set(CURLOPT_WRITEDATA, static_cast<void*>(state_.get()));
  set(CURLOPT_NOPROGRESS, 0L);
  set(CURLOPT_XFERINFOFUNCTION, &State::progressed);
  set(CURLOPT_XFERINFODATA, static_cast<void*>(state_.get()));
  set(CURLOPT_OPENSOCKETFUNCTION, &openSocket);
}

void CurlTransfer::ended(CURLcode code) {
  const std::optional<system::Failure> failure = outcome(code);
  loop_->remove(std::move(handle_));
  // It may end this transfer.
  const Transport::Finished finished = std::move(finished_);
  finished(failure);
}

std::optional<system::Failure> CurlTransfer::outcome(CURLcode code) const {
  if (state_->isStopped) {
    return std::nullopt;
  }
  const long status = state_->status();
  if (code == CURLE_OK && status == complete) {
    return std::nullopt;
  }
  if (state_->isTooLong) {
    code = CURLE_FILESIZE_EXCEEDED;
  } else if (code == CURLE_OK || (code == CURLE_WRITE_ERROR && status != complete)) {
    code = CURLE_HTTP_RETURNED_ERROR;
  }
  // Of a redirect that is refused, the one who redirects is to blame.
  const std::string blamed = code == CURLE_UNSUPPORTED_PROTOCOL ? state_->request.address : state_->address();
  return transferFailure(code, blamed, state_->detail(code), status);
}

}  // namespace tarnwell::updater
