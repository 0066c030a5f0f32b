#pragma once

#include "host/headless/HeadlessLog.h"
#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/HeadlessUpdater.h"
#include "host/headless/Journal.h"
#include "host/headless/PointNumberFormat.h"
#include "host/macos/MacPlatform.h"
#include "host/macos/look/Conversions.h"

namespace tarnwell::host_macos {

/// What answers in the system's place, in memory.
struct HeadlessServices {
  host_headless::Journal journal = {};
  host_headless::HeadlessUpdater updater{journal};
  host_headless::HeadlessLoginItem loginItem{journal};
  host_headless::HeadlessLog log = {};
  /// The last address that was given to the browser.
  std::string opened = {};

  MacPlatform::Services services() {
    return {
        .systemVersion = {.major = 14},
        .numberFormat = std::make_shared<const host_headless::PointNumberFormat>(),
        .loginItem = &loginItem,
        .log = &log,
        .makeUpdaterController =
            [this](auto&, const auto&) { return std::make_unique<host_headless::HeadlessUpdaterController>(updater); },
        .open = [this](NSURL* address) { opened = toString([address absoluteString]); },
        .startAgain = [this] { journal.note("startAgainAtEnd"); }};
  }
};

}  // namespace tarnwell::host_macos
