// A column of a model as it is shown in a grid: what the host has said of it, what its values are as texts, and the
// way back.
#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/sheet/FieldText.h"
#include "kxVsGrid/support/Decimal.h"

namespace kxVsGrid::qt {

struct ModelPlan {
    int before = -1;     ///< its number before the model's columns became others; -1: a new one
    std::string header;  ///< of the model
    std::string caption;
    bool captioned = false;  ///< by the host
    FieldKind kind = FieldKind::Text;
    bool typed = false;   ///< by the host
    QMetaType valueType;  ///< of the values that the model has there, as far as it is known
    bool readOnly = false;
    bool hidden = false;
    bool total = false;
    bool stretch = false;
    bool required = false;
    bool keepsEmpty = false;  ///< an empty cell is an empty text
    std::optional<int> decimals;
    std::int16_t limit = 0;
    std::optional<std::int32_t> width;
    std::string sample;
    std::string format;
    std::optional<mEmflexAlign> alignment;
    std::optional<double> least;

    /// The kind by a value of the model's. False when it says nothing.
    bool guess(const QVariant& value);
    /// What a cell holds for a value.
    std::string text(const QVariant& value) const;
    /// What the model is given for a text; `now` is what it has.
    QVariant value(std::string_view text, const QVariant& now) const;

    /// Tells the grid; its set-up is the caller's.
    void define(kxGrid& grid, std::int32_t col) const;
    /// What needs all texts.
    void allow(kxGrid& grid, std::int32_t col, bool whole) const;

  private:
    QVariant number(const QString& text) const;
    std::string_view usualText() const;
};
}  // namespace kxVsGrid::qt
