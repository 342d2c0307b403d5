// One member of a record, whatever its type: what a sheet needs to read and write it.
//
//     kxVsGrid::sheet::MemberField<Line, kxVsGrid::Decimal> price(&Line::price);
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/sheet/FieldText.h"

namespace kxVsGrid::sheet {

class Field {
  public:
    virtual ~Field() = default;
    virtual FieldKind kind() const = 0;
    /// The member can be without a value, so that none and 0 are two things.
    virtual bool optional() const = 0;
    virtual void append(const void* record, std::string& text) const = 0;
    /// False, and nothing has changed, for a text that is no value.
    virtual bool read(void* record, std::string_view text) const = 0;
    virtual bool alike(const void* one, const void* other) const = 0;
};

template <class Record, class T>
class MemberField : public Field {
  public:
    explicit MemberField(T Record::*member) : member_(member), blank_(blankOf(member)) {}
    FieldKind kind() const override { return FieldText<T>::Kind; }
    bool optional() const override { return IsOptionalField<T>; }
    void append(const void* record, std::string& text) const override {
        FieldText<T>::append(text, of(record));
    }
    bool read(void* record, std::string_view text) const override {
        T& value = static_cast<Record*>(record)->*member_;
        if (!text.empty()) return FieldText<T>::read(text, value);
        value = blank_;
        return true;
    }
    bool alike(const void* one, const void* other) const override { return of(one) == of(other); }

  private:
    const T& of(const void* record) const { return static_cast<const Record*>(record)->*member_; }
    /// Whose cell is empty. What a new record holds is another thing: presets serve that.
    static T blankOf(T Record::*member) {
        if constexpr (!IsOptionalField<T>) {
            T value = T();
            std::string text;
            FieldText<T>::append(text, value);
            const bool blanked = FieldText<T>::Kind != FieldKind::Text;  // as the grid blanks a 0
            return text.empty() || blanked ? value : Record{}.*member;
        } else {
            return std::nullopt;
        }
    }

    T Record::*member_;
    T blank_;
};
}  // namespace kxVsGrid::sheet
