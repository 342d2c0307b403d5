// A property bag in QSettings: where a program keeps what its user likes.
//
//     QSettings settings;
//     settings.beginGroup("order/lines");
//     kxVsGrid::qt::SettingsBag bag(settings);
//     widget->grid().WriteProperties(bag);
//     bag.sync();                                     // throws BagError when they could not be kept
//
// Values are texts that name their type ("Int32 12", "Text \"行号|货号\""), so that every format of QSettings
// gives them back as they were. A value that equals its default, in type and value, is left out. Names keep
// their letters; "/", "\", "%" and bytes that are no text stand there as %2F and so on.
//
// Nothing changes in the settings without sync(): QSettings by itself writes half a file on a disk that runs
// full, and calls that a success.
#pragma once

#include <QMap>
#include <QSettings>
#include <QVariant>

#include "kxVsGrid/PropertyBag.h"
#include "kxVsGrid/TextBag.h"

namespace kxVsGrid::qt {

class SettingsBag : public PropertyBag {
  public:
    /// Values are those of the group that is current when they are read and when they are synced. The
    /// settings must outlive the bag.
    explicit SettingsBag(QSettings& settings);

    /// BagError for a value that somebody else wrote there and that names no type; and for one that is not
    /// there when the settings could not be read: nobody can tell whether it was stored.
    Variant Read(std::string_view name, const Variant& fallback) override;
    /// BagError for an array.
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override;
    void Write(std::string_view name, const Variant& value) override;

    /// Puts what was written into the settings and keeps them. BagError names the file and the reason; the
    /// settings that it held before stay, and what was written is tried again by the next call.
    void sync();

  private:
    QSettings& settings_;
    std::string damage_;
    /// By key, since the last sync; an invalid value removes.
    QMap<QString, QVariant> changes_;
};
}  // namespace kxVsGrid::qt
