#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/CapturedOutput.h"
#include "fuzz/OwnFolder.h"
#include "fuzz/Require.h"
#include "fuzz/Words.h"
#include "standin/defaults/Commands.h"
#include "standin/store/SystemRoot.h"
#include "system/base/Utf8.h"

namespace tarnwell::fuzz {
namespace {

namespace fs = std::filesystem;
using standin::Status;
using Words = std::vector<std::string>;

constexpr const char* domain = "example.app";
constexpr std::string_view storedBefore =
    "<plist><dict><key>number</key><integer>7</integer><key>list</key><array><string>a</string></array>"
    "<key>entries</key><dict><key>b</key><true/></dict></dict></plist>";

/// A played system with one domain.
class Store {
 public:
  Store() {
    ::setenv("MACOS_ROOT", folder_.path().c_str(), 1);
    fs::create_directories(preferences());
    writeFile(fileOf(domain), storedBefore);
  }

  std::string root() const { return folder_.path(); }
  fs::path preferences() const { return standin::preferencesFolder(root()); }
  std::string fileOf(const std::string& name) const { return preferences() / (name + ".plist"); }
  std::string exchanged() const { return folder_.path() / "exchanged"; }

  /// Every store is sound, and nothing else is left there but the lock. Returns how many there are.
  int checkFiles() const {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(preferences())) {
      const std::string path = entry.path();
      if (!path.ends_with("/.defaults.lock")) {
        require(path.ends_with(".plist") && standin::loadPreferences(path).state == standin::StoreState::sound);
        ++count;
      }
    }
    return count;
  }

 private:
  OwnFolder folder_;
};

Status runDefaults(const Words& words) {
  const std::vector<std::string_view> arguments(words.begin(), words.end());
  return standin::runDefaults(arguments);
}

/// No path but one of ours is written: any other domain is one in the store, and what is imported is what the word
/// says.
void keepInside(Words& words, const Store& store) {
  if (words.size() > 1 && words[1].find('/') != std::string::npos) {
    words[1] = domain;
  }
  const std::string verb = words.empty() ? "" : standin::lowerCase(words.front());
  if (words.size() > 2 && (verb == "import" || verb == "export")) {
    writeFile(store.exchanged(), verb == "import" ? words[2] : "");
    words[2] = store.exchanged();
  }
}

std::size_t itemCount(const standin::StoredPreferences& stored, const std::string& key) {
  return standin::itemsOf(plist_dict_get_item(stored.dictionary.get(), key.c_str())).size();
}

/// What was written is there, and is the same when it is written once more, or stands there twice when it was added.
void checkWritten(const Words& words, const Store& store) {
  const auto resolved = standin::Domain::resolve(words.at(1), store.root());
  require(resolved && runDefaults({"read-type", words[1], words.at(2)}) == Status::success);
  const auto once = standin::loadPreferences(resolved->path);
  require(runDefaults(words) == Status::success);
  const auto twice = standin::loadPreferences(resolved->path);
  if (words.at(3) == "-array-add" && words.size() > 4) {
    require(itemCount(twice, words[2]) > itemCount(once, words[2]));
  } else {
    require(standin::isSame(once.dictionary.get(), twice.dictionary.get()));
  }
}

void checkExchanged(const Words& words, const Store& store) {
  const auto exported = standin::loadPreferences(store.exchanged());
  require(exported.state == standin::StoreState::sound);
  if (words.at(1) == domain) {
    const auto stored = standin::loadPreferences(store.fileOf(domain));
    require(standin::isSame(exported.dictionary.get(), stored.dictionary.get()));
  }
}

/// The words are a command line. What fails changes nothing, and what was changed can be read.
void run(std::string_view text) {
  const Store store;
  Words words = wordsIn(text);
  keepInside(words, store);
  const CapturedOutput output;
  const Status status = runDefaults(words);
  const int count = store.checkFiles();
  if (status != Status::success) {
    require(status == Status::failure || status == Status::usage);
    require(count == 1 && contentOf(store.fileOf(domain)) == storedBefore);
    return;
  }
  require(system::isUtf8(output.text()));
  const std::string verb = standin::lowerCase(words.front());
  if (verb == "write") {
    checkWritten(words, store);
  } else if (verb == "export") {
    checkExchanged(words, store);
  }
  store.checkFiles();
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
