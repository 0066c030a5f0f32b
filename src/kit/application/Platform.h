#pragma once

#include <memory>
#include <optional>
#include <string>

#include "kit/application/Product.h"
#include "kit/events/AppleEvent.h"
#include "kit/host/StatusItemPeer.h"
#include "kit/ports/NumberFormat.h"
#include "kit/ports/SystemVersion.h"
#include "kit/turn/Subscription.h"

namespace tarnwell::kit {

class Application;
class Host;
class Log;
class LoginItem;
class StatusItem;
class UpdaterController;
struct UpdaterControllerArguments;

/// What the application asks of the system beside windows and controls. Everything is called on the main thread. What a
/// platform tells unasked stands at `Application`, `WindowList::setKeyWindow`, and `ResponderChain`, whose `choose`
/// takes what the user chooses from a menu.
class Platform {
 public:
  virtual ~Platform() = default;

  virtual Host& host() = 0;
  /// What runs here.
  virtual const Product& product() const = 0;
  virtual SystemVersion systemVersion() const = 0;
  virtual std::shared_ptr<const NumberFormat> numberFormat() const = 0;

  /// Ends the launch, then runs the event loop until the application ends; returns the status of the process, unless
  /// the platform ends that itself.
  virtual int run(Application& application) = 0;

  /// Runs `readable` from the event loop whenever `descriptor`, which stays the caller's, can be read, until the
  /// subscription ends.
  [[nodiscard]] virtual Subscription watch(int descriptor, Action readable) = 0;

  /// Calls `EventQueue::runTurn` from the event loop soon, once for any number of calls before that.
  virtual void wakeUp(Application& application) = 0;

  /// Runs `open`, which opens the application's first windows, when status icons stand and it is known what windows
  /// look like: at once, or from the event loop, unless the subscription has ended by then.
  [[nodiscard]] virtual Subscription whenReady(const Action& open) {
    open();
    return {};
  }

  /// Brings this application to the front.
  virtual void activateIgnoringOtherApps() = 0;
  /// Ends the application without asking or waiting. The platform, which may also end it unasked, tells the
  /// application (`willTerminate`): at once or when its event loop has ended.
  virtual void terminate(Application& application) = 0;
  /// Has this program started once more when it has ended.
  virtual void startAgainAtEnd() = 0;
  /// Shows the panel with icon, name, version and copyright, without bringing the application to the front.
  virtual void orderFrontStandardAboutPanel(Application& application) = 0;
  /// Opens an address in the user's browser, without waiting for it.
  virtual void openUrl(const std::string& address) = 0;

  /// False where events cannot be made; a test says so.
  virtual bool makesEvents() const { return true; }

  /// Shows the application's main menu from now on.
  virtual void showMainMenu(Application& application) = 0;

  /// Whether the system can hide an application and bring it back.
  virtual bool hidesApplications() const { return false; }

  virtual bool hasStatusButtons() const { return true; }
  virtual std::unique_ptr<StatusItemPeer> peer(StatusItem& item) = 0;

  virtual std::unique_ptr<UpdaterController> makeUpdaterController(Application& application,
                                                                   const UpdaterControllerArguments& arguments) = 0;
  virtual LoginItem& mainAppService() = 0;
  virtual std::optional<AppleEvent> currentAppleEvent() const = 0;
  virtual Log& log() = 0;
};

}  // namespace tarnwell::kit
