#include "host/qt/panels/DownloadProgress.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include "host/qt/look/Conversions.h"
#include "host/qt/look/Theme.h"
#include "host/qt/panels/ProgressLine.h"
#include "updateclient/ByteCount.h"

namespace tarnwell::host_qt {
namespace {

constexpr int aboveNumbers = 7;

}  // namespace

DownloadProgress::DownloadProgress(const Theme& theme)
    : line_(new ProgressLine(theme, this)), numbers_(new QLabel(QStringLiteral("Connecting…"), this)) {
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(aboveNumbers);
  line_->setAccessibleName(QStringLiteral("Download"));
  // The palette's quiet text.
  numbers_->setForegroundRole(QPalette::PlaceholderText);
  numbers_->setFont(theme.font(kit::FontRole::subheadline));
  lines->addWidget(line_);
  lines->addWidget(numbers_);
}

void DownloadProgress::set(std::uint64_t received, std::uint64_t expected, const kit::NumberFormat& format) {
  if (expected > 0) {
    line_->setShare(static_cast<double>(received) / static_cast<double>(expected));
  }
  numbers_->setText(toQString(updateclient::byteProgress(received, expected, format)));
}

}  // namespace tarnwell::host_qt
