#include "host/qt/session/AfterInput.h"

#include <QtCore/QAbstractNativeEventFilter>
#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <chrono>
#include <cstdint>
#include <utility>

#include "host/qt/session/RunLater.h"
#include "host/qt/session/X11Display.h"

namespace tarnwell::host_qt {
namespace {

// A thread of the toolkit's reads what a Wayland desktop sends, and nothing that we can ask tells how far it is.
constexpr auto longEnough = std::chrono::milliseconds(50);

/// A window that is never shown and ends at once: the X11 server tells of that behind all that it has sent before.
class PassingWindow final : public QObject, public QAbstractNativeEventFilter {
 public:
  PassingWindow(QObject& context, kit::Action action)
      : QObject(&context), action_(std::move(action)), window_(xcb_generate_id(x11Display())) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(x11Display(), XCB_COPY_FROM_PARENT, window_, x11RootWindow(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    xcb_destroy_window(x11Display(), window_);
    xcb_flush(x11Display());
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) noexcept override {
    const auto* told = static_cast<const xcb_destroy_notify_event_t*>(message);
    if (told->response_type == XCB_DESTROY_NOTIFY && told->window == window_) {
      // What came before has been read. The toolkit delivers it before it looks at its own queue.
      runLater(*parent(), std::move(action_));
      deleteLater();
    }
    return false;
  }

 private:
  kit::Action action_;
  xcb_window_t window_;
};

}  // namespace

void runAfterInput(QObject& context, kit::Action action) {
  if (x11Display() != nullptr) {
    new PassingWindow(context, std::move(action));
    return;
  }
  QTimer::singleShot(longEnough, &context,
                     [&context, action = std::move(action)]() noexcept { runLater(context, action); });
}

}  // namespace tarnwell::host_qt
