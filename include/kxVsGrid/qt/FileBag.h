// A property bag in a file of readable text, one setting a line (TextBag.h describes it): made to be looked
// at, compared and kept in a version control system.
//
//     kxVsGrid::qt::FileBag bag("lines.settings");
//     widget->grid().WriteProperties(bag);
//     bag.save();
//
// The file is replaced as a whole: a crash or a full disk leaves the old one as it was. Nothing changes in it
// without save().
#pragma once

#include <QString>

#include "kxVsGrid/TextBag.h"

namespace kxVsGrid::qt {

class FileBag : public PropertyBag {
  public:
    /// The longest file that is read, in bytes.
    static constexpr qint64 LongestFile = qint64{64} * 1024 * 1024;

    /// A file that does not exist yet is a bag without values. BagError, with its name and the reason, for
    /// one that cannot be read or is longer than LongestFile. Damage inside the file is told when a value is
    /// read.
    explicit FileBag(const QString& path);

    Variant Read(std::string_view name, const Variant& fallback) override;
    /// BagError for an array.
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override;
    void Write(std::string_view name, const Variant& value) override;

    /// BagError, with the file's name and the reason, when the file cannot be written, or when its text was
    /// damaged: what could not be read is not overwritten before clear(), nor by a bag that has been given
    /// nothing since.
    void save() const;
    void clear();

    const QString& path() const { return path_; }
    /// What is wrong with the text that was read; empty when nothing is.
    const std::string& damage() const { return text_.damage(); }

  private:
    QString path_;
    TextBag text_;
    std::string cleared_;  ///< the damage that clear() has put aside
};
}  // namespace kxVsGrid::qt
