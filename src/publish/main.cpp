#include <fcntl.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <system_error>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "publish/Publishing.h"
#include "publish/SecretKey.h"
#include "system/base/Descriptor.h"

namespace tarnwell::publish {
namespace {

constexpr int wrongUsage = 2;

system::Result<void> makeKey(const std::string& file) {
  const SecretKey key = SecretKey::generate();
  auto stored = key.store(file);
  if (stored) {
    diagnostics::printLine(key.publicText());
  }
  return stored;
}

system::Result<void> showPublicKey(const std::string& file) {
  const auto key = SecretKey::read(file);
  if (!key) {
    return key.error();
  }
  diagnostics::printLine(key->publicText());
  return {};
}

system::Result<void> showSignature(const std::string& keyFile, const std::string& package) {
  const auto key = SecretKey::read(keyFile);
  if (!key) {
    return key.error();
  }
  const system::Descriptor file(::open(package.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file) {
    return system::systemFailure("cannot read " + package);
  }
  const auto signature = key->sign(file.number());
  if (!signature) {
    return system::Failure{package + ": " + signature.error().message};
  }
  diagnostics::printLine(*signature);
  return {};
}

/// What was typed, and what is to be done with it.
struct Command {
  std::string key = {};
  std::string package = {};
  std::string feed = {};
  Release release = {};
  std::function<system::Result<void>()> run = {};
};

void addKeyCommands(CLI::App& app, Command& command) {
  CLI::App* key = app.add_subcommand("key", "Make a key pair; print the public key");
  key->add_option("PRIVATE", command.key, "New file for the private key")->required();
  key->callback([&command] { command.run = [&command] { return makeKey(command.key); }; });
  CLI::App* shown = app.add_subcommand("public", "Print the public key of a private one");
  shown->add_option("PRIVATE", command.key, "File with the private key")->required();
  shown->callback([&command] { command.run = [&command] { return showPublicKey(command.key); }; });
  CLI::App* sign = app.add_subcommand("sign", "Print the signature of a package");
  sign->add_option("PRIVATE", command.key, "File with the private key")->required();
  sign->add_option("PACKAGE", command.package, "File to sign")->required();
  sign->callback([&command] { command.run = [&command] { return showSignature(command.key, command.package); }; });
}

void addAddCommand(CLI::App& app, Command& command) {
  Release& release = command.release;
  CLI::App* add = app.add_subcommand("add", "Sign a package and add an item for it to a feed");
  add->add_option("FEED", command.feed, "File with the feed; made where there is none")->required();
  add->add_option("--private-key", release.privateKey, "File with the private key")->required();
  add->add_option("--package", release.package, "File to sign")->required();
  add->add_option("--url", release.url, "Where it will be fetched from, https://...")->required();
  add->add_option("--version", release.version, "What is compared, 1.2")->required();
  add->add_option("--shown-version", release.shownVersion, "What people read instead");
  add->add_option("--title", release.title, "Of the item; the product's name and the version unless given");
  add->add_option("--notes", release.notes, "File with plain or simple rich text");
  add->add_option("--channel", release.channel, "Offer it to this channel only");
  add->add_option("--minimum-system", release.minimumSystemVersion, "Oldest Linux that it runs on, 5.10");
  add->add_flag("--critical", release.isCritical, "It cannot be skipped");
  add->callback([&command] { command.run = [&command] { return publishRelease(command.release, command.feed); }; });
}

int run(int argc, char** argv) {
  CLI::App app("Signs packages and makes update feeds.", "make-feed");
  Command command;
  app.require_subcommand(1);
  addKeyCommands(app, command);
  addAddCommand(app, command);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == EXIT_SUCCESS ? EXIT_SUCCESS : wrongUsage;
  }
  if (const auto result = command.run(); !result) {
    diagnostics::printErrorLine("make-feed: " + result.error().message);
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tarnwell::publish

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  tarnwell::diagnostics::prepareStandardStreams();
  return tarnwell::publish::run(argc, argv);
}
