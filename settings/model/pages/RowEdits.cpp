#include "settings/model/pages/RowEdits.h"

#include <algorithm>

namespace prismo::settings {

std::vector<RowEdit> rowEdits(const std::vector<Row>& before, const std::vector<Row>& after) {
    // kept[i][j]: the length of the longest common subsequence of the first i old and first j new lines.
    std::vector<std::vector<std::size_t>> kept(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
    for (std::size_t i = 1; i <= before.size(); ++i)
        for (std::size_t j = 1; j <= after.size(); ++j)
            kept[i][j] = before[i - 1].isSameRow(after[j - 1]) ? kept[i - 1][j - 1] + 1
                                                               : std::max(kept[i - 1][j], kept[i][j - 1]);
    std::vector<RowEdit> edits;
    const auto add = [&](RowEdit::Kind kind, std::size_t at, std::size_t from) {
        auto* last = edits.empty() ? nullptr : &edits.back();
        const bool goesOn = last && last->kind == kind &&
                            (kind == RowEdit::Kind::insert ? last->at == at : last->at == at + 1);
        if (!goesOn) return edits.push_back({kind, at, 1, from});
        last->at = at;
        last->from = from;
        ++last->count;
    };
    std::size_t i = before.size();
    std::size_t j = after.size();
    while (i > 0 || j > 0) {
        if (i > 0 && j > 0 && before[i - 1].isSameRow(after[j - 1])) {
            --i;
            --j;
        } else if (j > 0 && (i == 0 || kept[i][j - 1] >= kept[i - 1][j])) {
            add(RowEdit::Kind::insert, i, --j);
        } else {
            add(RowEdit::Kind::remove, --i, 0);
        }
    }
    return edits;
}

} // namespace prismo::settings
