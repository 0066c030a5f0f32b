#pragma once

#include <QtCore/QStringList>
#include <optional>

class QKeyEvent;
class QMenu;

namespace tarnwell::host_qt {

/// Finds the row of a list that begins with what is typed. Letters that follow one another within a second are one
/// word; the same letter again goes on to the next row.
class TypeAhead {
 public:
  /// The row that `key` leads to from row `current`, -1 for none; nothing where no title begins so.
  std::optional<int> rowFor(const QKeyEvent& key, const QStringList& titles, int current);

  /// Makes that row of an open menu the active one. False for a key that types nothing.
  bool choose(const QKeyEvent& key, QMenu& menu);

  /// Whether `key` is part of a word; a blank is where one of the titles goes on with it.
  bool isTyping(const QKeyEvent& key, const QStringList& titles) const;

 private:
  bool goesOn(const QKeyEvent& key) const;

  QString typed_;
  quint64 last_ = 0;  // When, in the milliseconds of the events.
};

}  // namespace tarnwell::host_qt
