#pragma once

namespace tarnwell::bench {

/// What an update is judged by, and beside each what it has to cost at least. They end the program where one fails.

/// A feed of 20 versions.
void readFeed(int count);
/// The same bytes by the parser alone.
void parseFeed(int count);

/// A package of 1 MiB, in a file.
void verifyPackage(int count);
/// The same signature by the library alone, in memory.
void verifyBytes(int count);

}  // namespace tarnwell::bench
