#include "app/views/ProductLink.h"

#include "view/controls/buttons/Link.h"

namespace tarnwell::app {

view::View ProductLink::body() const { return view::Link{.title = title, .destination = product.get().page(path)}; }

}  // namespace tarnwell::app
