#pragma once

namespace tarnwell::updater {

enum class PackageKind { debian, appImage, other };

/// What a file is by its first bytes, which were verified, and not by what the feed says of it.
PackageKind packageKind(int descriptor);

}  // namespace tarnwell::updater
