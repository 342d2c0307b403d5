#include "qt/suggestions/SuggestionRows.h"

#include <algorithm>
#include <limits>

#include "qt/view/ShownText.h"

namespace kxVsGrid::qt {
namespace {

/// Characters of a row's text, and of its note; more would leave every list.
constexpr qsizetype LongestShown = 200;

/// In one line.
QString line(std::string_view utf8) {
    QString text = shortened(utf8, LongestShown);
    for (QChar& unit : text)
        if (unit.category() == QChar::Other_Control || unit.category() == QChar::Separator_Line ||
            unit.category() == QChar::Separator_Paragraph)
            unit = u' ';
    return text;
}
}  // namespace

void SuggestionRows::put(std::span<const Suggestion> candidates) {
    beginResetModel();
    candidates_ = candidates;
    endResetModel();
}

/// Others never lie in the same place: they are there before those that were shown last go.
bool SuggestionRows::holds(std::span<const Suggestion> candidates) const {
    return candidates.data() == candidates_.data() && candidates.size() == candidates_.size();
}

int SuggestionRows::rowCount(const QModelIndex& parent) const {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return parent.isValid() ? 0 : static_cast<int>(std::min(candidates_.size(), most));
}

QVariant SuggestionRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Suggestion& candidate = at(static_cast<std::size_t>(index.row()));
    switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return line(candidate.text);
        case Note:
        case Qt::AccessibleDescriptionRole:
            return line(candidate.note);
        default:
            return {};
    }
}
}  // namespace kxVsGrid::qt
