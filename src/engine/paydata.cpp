#include "engine/paydata.h"

namespace tallyfin {

constinit thread_local PayData payData;

}  // namespace tallyfin
