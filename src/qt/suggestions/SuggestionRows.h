// The candidates of a list as rows for Qt, which asks for those that it paints.
#pragma once

#include <QAbstractListModel>
#include <span>

#ifndef Q_MOC_RUN
#include "kxVsGrid/Suggestions.h"
#endif

namespace kxVsGrid::qt {

class SuggestionRows : public QAbstractListModel {
  public:
    enum Role { Note = Qt::UserRole };

    using QAbstractListModel::QAbstractListModel;

    /// They are looked at in place, however many there are, until others are put.
    void put(std::span<const Suggestion> candidates);
    bool holds(std::span<const Suggestion> candidates) const;
    const Suggestion& at(std::size_t index) const { return candidates_[index]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    std::span<const Suggestion> candidates_;
};
}  // namespace kxVsGrid::qt
