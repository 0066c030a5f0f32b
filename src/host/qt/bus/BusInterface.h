#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <functional>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "host/qt/bus/BusList.h"
#include "host/qt/bus/BusValue.h"

namespace tarnwell::host_qt {

/// What a peer is told instead of an answer.
struct BusError {
  QString name = {};
  QString text = {};

  // Those that the bus itself has, `org.freedesktop.DBus.Error.`
  static BusError invalidArguments(const QString& text);
  static BusError limitsExceeded(const QString& text);
  static BusError propertyReadOnly(const QString& property);
  static BusError unknownInterface(const QString& interface);
  static BusError unknownMethod(const QString& method);
  static BusError unknownProperty(const QString& property);
};

/// What a method gives back.
template <class... Given>
using BusReply = std::variant<std::tuple<Given...>, BusError>;

/// An interface that is offered on the bus. The types of its C++ functions are its declaration: they make what peers
/// read of it, and nothing that is not of these types gets to the functions.
class BusInterface {
 public:
  using Answer = std::variant<QVariantList, BusError>;

  explicit BusInterface(QString name) : name_(std::move(name)) {}

  const QString& name() const { return name_; }

  /// What takes arguments of these types and gives a BusReply. `names` are those of all arguments, the given ones last.
  /// Every type must be known to the toolkit (see registerBusTypes).
  template <class... Given, class... Taken>
  void addMethod(const QString& name, const QStringList& names, std::function<BusReply<Given...>(Taken...)> method) {
    const auto call = [method = std::move(method)](const QVariantList& arguments) {
      return called(method, arguments, std::index_sequence_for<Taken...>());
    };
    methods_.push_back({name, names, {typeOf<Taken>()...}, {typeOf<Given>()...}, call});
  }

  /// What can be read and not written. `read` gives one value.
  template <class Read>
  void addProperty(const QString& name, Read read) {
    properties_.push_back({name, typeOf<std::invoke_result_t<Read>>(), [read] { return QVariant::fromValue(read()); }});
  }

  template <class... Argument>
  void addSignal(const QString& name, const QStringList& names = {}) {
    signals_.push_back({name, names, {typeOf<Argument>()...}});
  }

  bool hasMethod(const QString& name) const { return methodNamed(name) != nullptr; }
  Answer call(const QString& method, const QVariantList& arguments) const;

  /// Nothing for a property that the interface does not have.
  std::optional<QVariant> property(const QString& name) const;
  QVariantMap properties() const;

  /// As introspection tells it.
  QString description() const;

 private:
  struct Method {
    QString name;
    QStringList argumentNames;
    QStringList taken;
    QStringList given;
    std::function<Answer(const QVariantList&)> call;
  };
  struct Property {
    QString name;
    QString type;
    std::function<QVariant()> read;
  };
  struct Signal {
    QString name;
    QStringList argumentNames;
    QStringList types;
  };

  template <class T>
  static QString typeOf() {
    return busSignature(QMetaType::fromType<std::decay_t<T>>());
  }

  template <class T>
  static bool isWhole(const T& /*value*/) {
    return true;
  }
  template <class Items>
  static bool isWhole(const Limited<Items>& limited) {
    return limited.isWhole;
  }
  // The toolkit itself reads these, before they come here.
  static bool isWhole(const QStringList& list) { return list.size() <= mostBusItems; }

  template <class... Given, class... Taken, std::size_t... Index>
  static Answer called(const std::function<BusReply<Given...>(Taken...)>& method, const QVariantList& arguments,
                       std::index_sequence<Index...> /*each*/) {
    const std::tuple<std::decay_t<Taken>...> taken{qdbus_cast<std::decay_t<Taken>>(arguments.at(Index))...};
    if (!(isWhole(std::get<Index>(taken)) && ...)) {
      return BusError::limitsExceeded(QStringLiteral("too many elements"));
    }
    const BusReply<Given...> reply = std::apply(method, taken);
    if (const auto* error = std::get_if<BusError>(&reply)) {
      return *error;
    }
    return std::apply([](const auto&... value) { return QVariantList{QVariant::fromValue(value)...}; },
                      std::get<0>(reply));
  }

  const Method* methodNamed(const QString& name) const;

  QString name_;
  std::vector<Method> methods_;
  std::vector<Property> properties_;
  std::vector<Signal> signals_;
};

}  // namespace tarnwell::host_qt
