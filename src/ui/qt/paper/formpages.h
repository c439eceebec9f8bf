#pragma once

#include <QString>
#include <vector>

#include "explain/form.h"

class QPagedPaintDevice;

namespace tallyfin::qt {

/// Worksheets on paper: the entries above, then one worksheet after the other, each below its title. Where a page has
/// no room for the title and two lines, the worksheet begins on the next. The pages are numbered.
struct FormPages {
  QString title;
  FormHeading entries;
  QString sentence;  ///< Between the entries and the worksheets.
  std::vector<Form> forms;

  /// Draws the pages that the device asks for; false where it can't be painted on.
  bool draw(QPagedPaintDevice& device) const;
};

}  // namespace tallyfin::qt
