#pragma once

#include <QString>
#include <vector>

#include "explain/form.h"

class QPagedPaintDevice;

namespace tallyfin::qt {

/// Worksheets on paper: first the entries, then the worksheets, each below its title. A worksheet begins on a new page
/// where the title and two lines don't fit. Pages are numbered.
struct FormPages {
  QString title;
  FormHeading entries;
  QString sentence;  ///< Between the entries and the worksheets.
  std::vector<Form> forms;

  /// Draws the pages that the device requests; false where painting fails.
  bool draw(QPagedPaintDevice& device) const;
};

}  // namespace tallyfin::qt
