#pragma once

#include <string>
#include <vector>

namespace tarnwell::system {

/// Words as the system takes them for a new process; they stay the caller's.
inline std::vector<char*> wordPointers(const std::vector<std::string>& words) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (const std::string& word : words) {
    // The system's signature lacks a const; it does not touch the words.
    pointers.push_back(const_cast<char*>(word.c_str()));
  }
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace tarnwell::system
