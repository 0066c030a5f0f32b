#pragma once

namespace tarnwell::release {

/// What the engine says, beside what each job has to say. Its first line is `engineWord` with the version of all this,
/// its last one is `doneWord` or `failedWord`.
inline constexpr const char* engineWord = "engine";
inline constexpr const char* engineVersion = "1";
/// A fence that this system does not offer, as a sentence for the log.
inline constexpr const char* unfencedWord = "unfenced";
inline constexpr const char* doneWord = "done";
/// Why not, as a sentence for people.
inline constexpr const char* failedWord = "failed";

/// `fetch-package` has come that far: bytes.
inline constexpr const char* bytesWord = "bytes";
/// What `verify` found the package to be: a `PackageKind`'s name.
inline constexpr const char* kindWord = "kind";

/// The numbers under which a job finds what it works on and, where it makes files, the folder for them.
inline constexpr int engineInput = 0;
inline constexpr int engineFolder = 3;

}  // namespace tarnwell::release
