#pragma once

#include <string>
#include <string_view>

namespace tarnwell::kit {

/// What the application is called, and where it is at home: what the system would read from its bundle.
struct Product {
  std::string name = {};        ///< As people read it.
  std::string program = {};     ///< Of the executable, and of files and folders of the application's own.
  std::string identifier = {};  ///< Its one name among all applications, as reverse DNS: of its entry, icon, bus name.
  std::string version = {};
  std::string copyright = {};
  std::string summary = {};  ///< What it is for, in a line without a full stop.
  std::string webHost = {};  ///< Of its web site, with a port where it needs one.

  /// The address of a page of the web site. A host that is empty or holds anything but letters, digits, dots, hyphens
  /// and a port's colon gives no address, which is a fault.
  std::string page(std::string_view path) const;
};

}  // namespace tarnwell::kit
