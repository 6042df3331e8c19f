#pragma once

#include "settings/model/pages/Row.h"

#include <cstddef>
#include <vector>

namespace prismo::settings {

/// One step of turning a page's old lines into its new ones. Edits go from the last line to the first, so
/// earlier positions stay valid.
struct RowEdit {
    enum class Kind { insert, remove };
    Kind kind;
    /// In the old lines: the first removed line, or the line before which lines are inserted.
    std::size_t at;
    std::size_t count;
    /// In the new lines: the first line to insert.
    std::size_t from;
};

/// Returns the edits that keep as many lines as possible, in order.
std::vector<RowEdit> rowEdits(const std::vector<Row>& before, const std::vector<Row>& after);

} // namespace prismo::settings
