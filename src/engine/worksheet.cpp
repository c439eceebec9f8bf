#include "engine/worksheet.h"

#include <utility>

namespace tallyfin {

namespace {
WorksheetProvider theProvider = nullptr;
}

Worksheet& worksheet() { return theProvider(); }

WorksheetProvider provideWorksheet(WorksheetProvider provider) { return std::exchange(theProvider, provider); }

}  // namespace tallyfin
