// The widths that a user has given the columns of a grid, kept from run to run by the columns' names, so that
// they outlive new, moved and dropped columns.
#pragma once

#include <QSettings>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kxVsGrid/kxGrid.h"

class ColumnWidths {
  public:
    /// What is kept is used within these limits; anything else there is as good as nothing.
    static constexpr std::int32_t Narrowest = 150;  // twips
    static constexpr std::int32_t Widest = 15'000;

    /// The grid must outlive this. Its columns have names, and the widths that they were designed with; they
    /// get the kept ones now. Without settings nothing is kept. `failed` is told when a width could not be
    /// kept.
    ColumnWidths(kxVsGrid::kxGrid& grid, std::unique_ptr<QSettings> settings,
                 std::function<void(const QString& why)> failed);
    ColumnWidths(const ColumnWidths&) = delete;
    ColumnWidths& operator=(const ColumnWidths&) = delete;

    /// The designed widths again; nothing is kept any more.
    void reset();

  private:
    void restore();
    void keep(std::int32_t col);
    std::int32_t kept(std::int32_t col) const;
    void put(std::int32_t col, std::int32_t twips);
    std::string name(std::int32_t col) const;

    kxVsGrid::kxGrid& grid_;
    std::unique_ptr<QSettings> settings_;
    std::function<void(const QString&)> failed_;
    struct Design {
        std::int32_t width;
        std::string sample;  // of a column that is as wide as a text
    };
    std::vector<Design> designed_;
    kxVsGrid::ScopedConnection resized_;
};
