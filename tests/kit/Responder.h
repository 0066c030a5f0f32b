#pragma once

#include <string>
#include <vector>

#include "kit/turn/Object.h"

namespace tarnwell::kit {

/// Responds to one selector and notes each time that it was performed.
class Responder final : public Object {
 public:
  Responder(const std::string& name, const Selector& selector, std::vector<std::string>& notes) {
    respondTo(selector, [this, &notes, note = name + " " + selector](Object* sender) {
      lastSender_ = sender;
      notes.push_back(note);
    });
  }

  Object* lastSender() const { return lastSender_; }

 private:
  Object* lastSender_ = nullptr;
};

}  // namespace tarnwell::kit
