#include "qt/suggestions/SuggestionPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/suggestions/SuggestionRows.h"

namespace kxVsGrid::qt {
namespace {

constexpr int Beside = 3;  ///< on either side of a row, as cells have it
constexpr int Above = 1;
constexpr int Gap = 16;  ///< between text and note
/// The clerk reads the first ones; measuring a million would take longer than he types.
constexpr int MostMeasured = 100;

/// Rounded up: a text that is a fraction of a pixel too wide is left out in part.
int widthOf(const QString& text, const QFontMetricsF& metrics) {
    return static_cast<int>(std::ceil(metrics.horizontalAdvance(text)));
}

QString shownIn(const QModelIndex& index, int role) {
    return index.data(role).toString();
}
}  // namespace

void SuggestionPainter::measure(const QAbstractItemModel& rows, const QFontMetricsF& metrics) {
    text_ = note_ = 0;
    const int count = std::min(rows.rowCount(), MostMeasured);
    for (int row = 0; row < count; ++row) {
        const QModelIndex index = rows.index(row, 0);
        text_ = std::max(text_, widthOf(shownIn(index, Qt::DisplayRole), metrics));
        note_ = std::max(note_, widthOf(shownIn(index, SuggestionRows::Note), metrics));
    }
}

int SuggestionPainter::width() const {
    return 2 * Beside + text_ + (note_ > 0 ? Gap + note_ : 0);
}

int SuggestionPainter::rowHeight(const QFontMetrics& metrics) {
    return metrics.height() + 2 * Above;
}

QSize SuggestionPainter::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {width(), rowHeight(option.fontMetrics)};
}

/// A list too narrow for both takes from the wider column first.
void SuggestionPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const bool current = option.state.testFlag(QStyle::State_Selected);
    if (current) painter->fillRect(option.rect, option.palette.brush(QPalette::Active, QPalette::Highlight));
    painter->setFont(option.font);
    painter->setPen(
        option.palette.color(QPalette::Active, current ? QPalette::HighlightedText : QPalette::Text));

    QRect text = option.rect.adjusted(Beside, 0, -Beside, 0);
    QRect note;
    if (note_ > 0) {
        const int room = std::max(0, text.width() - Gap);
        const int forText = text_ + note_ <= room ? text_ : std::max(std::min(text_, room / 2), room - note_);
        note = text.adjusted(forText + Gap, 0, 0, 0);
        text.setWidth(forText);
    }
    const auto draw = [&](const QRect& where, int role) {
        const QString whole = shownIn(index, role);
        painter->drawText(where, static_cast<int>(Qt::AlignVCenter | Qt::AlignLeft) | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(whole, Qt::ElideRight, where.width()));
    };
    draw(text, Qt::DisplayRole);
    if (note_ > 0) draw(note, SuggestionRows::Note);
}
}  // namespace kxVsGrid::qt
