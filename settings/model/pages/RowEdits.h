#pragma once

#include "settings/model/pages/Row.h"

#include <cstddef>
#include <vector>

namespace prismo::settings {

/// Turns one page's lines into another's, from the last to the first, so that positions stay valid on the
/// way.
struct RowEdit {
    enum class Kind { insert, remove };
    Kind kind;
    /// In the old lines: what is removed, or before what the new ones are inserted.
    std::size_t at;
    std::size_t count;
    /// In the new lines; of an insertion.
    std::size_t from;
};

/// The edits that keep as many lines as can be kept in order.
std::vector<RowEdit> rowEdits(const std::vector<Row>& before, const std::vector<Row>& after);

} // namespace prismo::settings
