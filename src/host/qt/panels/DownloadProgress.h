#pragma once

#include <QtWidgets/QWidget>
#include <cstdint>

#include "kit/ports/NumberFormat.h"

class QLabel;

namespace tarnwell::host_qt {

class ProgressLine;
class Theme;

/// How much of a download has come: a line, and the numbers beneath it.
class DownloadProgress final : public QWidget {
 public:
  explicit DownloadProgress(const Theme& theme);

  /// In bytes; `expected` is 0 where the size is unknown.
  void set(std::uint64_t received, std::uint64_t expected, const kit::NumberFormat& format);

 private:
  ProgressLine* line_;
  QLabel* numbers_;
};

}  // namespace tarnwell::host_qt
