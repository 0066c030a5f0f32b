#pragma once

#include <filesystem>
#include <string_view>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"
#include "updateclient/installation/HandOver.h"
#include "updateclient/installation/PackageFile.h"

namespace tarnwell::updateclient {

/// How packages of one kind are installed.
struct InstallationWay {
  struct Target {
    std::filesystem::path path = {};
    system::Descriptor folder = {};
  };

  /// The name of the engine's `PackageKind`.
  std::string_view kind;
  /// Where the engine puts it, or why it is nothing for this system, as a sentence for people. `program` is what can be
  /// replaced of the program that runs; empty for nothing.
  system::Result<Target> (*target)(const PackageFile& package, const std::filesystem::path& program);
  /// What it comes to. A package that is opened is put into its own folder.
  HandOver handOver;
};

extern const InstallationWay debianWay;
extern const InstallationWay appImageWay;

/// Nothing for a kind that this system does not install.
const InstallationWay* installationWay(std::string_view kind);

}  // namespace tarnwell::updateclient
