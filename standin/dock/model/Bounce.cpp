#include "standin/dock/model/Bounce.h"

#include "standin/dock/model/Easing.h"

namespace tarnwell::standin {

double Bounce::height(Time now) const { return thrown(share(now)); }

bool Bounce::isMoving(Time now) const { return share(now) < 1; }

double Bounce::share(Time now) const { return begin_ ? Seconds(now - *begin_) / duration : 1; }

}  // namespace tarnwell::standin
