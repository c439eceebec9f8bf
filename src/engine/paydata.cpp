#include "engine/paydata.h"

namespace tallyfin {

PayData payData;

}  // namespace tallyfin
