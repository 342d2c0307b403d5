// A property bag as a readable text: one value per line with its type, in UTF-8, made to be kept in a version
// control system.
//
//     kxVsGrid settings 1
//     FormatString = Text "行号|<货号    "
//     Editable = Boolean True
//     Cols = Int32 5
//     end
//
// Values that equal their default are left out. The types are Boolean (True or False), Int16, Int32, Double
// (the shortest decimal that reads back the same), Text, Empty and Null. In texts \\ \" \n \r \t stand for
// themselves, and \xHH for any other byte that is a control character or no UTF-8. A name with anything but
// ASCII and Chinese letters, digits, "_" and "." is quoted like a text. Empty lines and lines that begin with
// # are skipped, line ends may be CR LF.
//
// A damaged text (cut off, a line that is none, a name that stands there twice) keeps the values above the
// damage. Reading a value that is not among them throws BagError, which says what is wrong and in which line:
// nobody can tell whether it was stored.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid {

/// A store of settings that cannot be read or written; the text says where and why.
class BagError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class TextBag : public PropertyBag {
  public:
    TextBag() = default;
    /// `source` is what errors call the text: the name of its file.
    explicit TextBag(std::string_view text, std::string_view source = "settings");

    Variant Read(std::string_view name, const Variant& fallback) override;
    /// BagError for an array, which no line can hold.
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override;
    void Write(std::string_view name, const Variant& value) override;

    /// What is wrong with the text that the bag was made from; empty when nothing is.
    const std::string& damage() const { return damage_; }
    const MemoryBag& values() const { return values_; }
    /// Empties the bag, which is then no longer damaged.
    void clear();

    /// BagError while the bag is damaged: what stands below the damage would be lost.
    std::string text() const;

  private:
    MemoryBag values_;
    std::string damage_;
};
}  // namespace kxVsGrid
