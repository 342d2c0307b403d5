// How a suggestion looks in its row: its text, and beside it the note, in columns.
#pragma once

#include <QAbstractItemDelegate>
#include <QFontMetrics>

namespace kxVsGrid::qt {

class SuggestionPainter : public QAbstractItemDelegate {
  public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    /// The columns become as wide as the first rows need; the others have to do with that.
    void measure(const QAbstractItemModel& rows, const QFontMetricsF& metrics);
    /// What a row needs, in pixels.
    int width() const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    static int rowHeight(const QFontMetrics& metrics);

  private:
    int text_ = 0;
    int note_ = 0;  ///< none: there is no second column
};
}  // namespace kxVsGrid::qt
