// Records that are known by a code: the goods of a company, its accounts, its customers. A sheet's column of codes
// checks what is typed by them, suggests them, lists them, and takes other members of its lines from them.
//
//     struct Goods {
//         std::string code, name, initials, size;
//         kxVsGrid::Decimal price;
//     };
//     auto goods = kxVsGrid::Codes<Goods>({{"100001", "六角螺栓", "ljls", "M8", 3}}, &Goods::code)
//                      .name(&Goods::name)
//                      .also(&Goods::initials)
//                      .field("规格", &Goods::size, 1200);
//     struct Line {
//         std::string code, name;
//         kxVsGrid::Decimal price;
//     };
//     kxVsGrid::Sheet<Line> sheet(grid);
//     sheet.code("code", "货号", &Line::code, goods)
//         .found([](Line& line, const Goods& found) {
//             line.name = found.name;
//             line.price = found.price;
//         })
//         .refusal("商品目录中没有这个货号");
//
// They are either held here, in a table with an index, or asked for one by one: Codes::asking. Copies share what they
// hold, so that what is said of one, also later, all of them know. They are used from one thread. What
// F2 opens (list, edit, choose, title), and what is suggested, is said before the first load of a sheet.
#pragma once

#include <algorithm>
#include <any>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "kxVsGrid/sheet/CodeSource.h"
#include "kxVsGrid/sheet/FieldText.h"

namespace kxVsGrid {

template <class T>
class Codes {
  public:
    using Find = std::function<std::optional<T>(std::string_view typed)>;
    using Edit = std::function<std::optional<T>(const std::string& code)>;
    using Choose = std::function<std::optional<T>(std::int32_t x, std::int32_t y, const std::string& typed)>;

    /// These records; `code` is the member, of any type that a sheet knows as a text or a number, that they are known
    /// by. Of two with one code the first one has it. The index is made when it is needed first: some 0.2 µs a record.
    template <class Key>
    Codes(std::vector<T> records, Key T::*code) : source_(std::make_shared<Source>(keyed(code))) {
        replace(std::move(records));
    }
    /// A function that finds the record of what was typed, in a database for instance: of the text, or of a code of
    /// the member's own type. It answers at once, is asked once for each check, and may throw when it cannot know.
    template <class Ask, class Key>
    static Codes asking(Ask find, Key T::*code) {
        Codes codes(code);
        if constexpr (std::is_convertible_v<Ask, Find>)
            codes.source_->find_ = std::move(find);
        else
            codes.source_->find_ = [find = std::move(find)](std::string_view typed) {
                Key key{};
                return FieldText<Key>::read(typed, key) ? find(key) : std::optional<T>();
            };
        return codes;
    }

    /// Other records from now on, in all sheets that use them. What stands there is looked up among them when it is
    /// typed or written next, or when faults are asked for. A function that was asked for codes is asked no more.
    void replace(std::vector<T> records) {
        source_->records_ = std::make_shared<const std::vector<T>>(std::move(records));
        source_->find_ = {};
        source_->forget();
    }
    /// The functions that are asked have other answers now: what is suggested is read again when it is needed next.
    void changed() { source_->forget(); }

    /// Shown beside the code. Without it the code is its own name.
    template <class Name>
    Codes& name(Name T::*member) {
        source_->name_ = text(member);
        source_->isName_ = comparing(member);
        source_->forget();
        return *this;
    }
    /// A member, or a function that makes a text, by which it is suggested and searched beside code and name:
    /// initials, a bar code.
    template <class Name>
    Codes& also(Name T::*member) {
        return also(Text(text(member)));
    }
    Codes& also(std::function<std::string(const T&)> other) {
        source_->others_.push_back(std::move(other));
        source_->forget();
        return *this;
    }
    /// Another code of the same records, a bar code for instance: found as the code itself is, and suggested; the cell
    /// gets the code. For records that are held here; a function that is asked finds what it likes.
    template <class Other>
    Codes& alias(Other T::*member) {
        source_->aliases_.push_back(text(member));
        return also(member);
    }
    /// What a function makes of a member: the initials of the name.
    template <class Name, class Make>
    Codes& also(Name T::*member, Make make) {
        return also([member, make = std::move(make)](const T& record) {
            const auto made = make(record.*member);
            std::string text;
            FieldText<std::remove_const_t<decltype(made)>>::append(text, made);
            return text;
        });
    }
    /// A column of the list; width in twips; numbers as they are, or with so many decimals. Those of code and name
    /// come first, where no field shows them.
    template <class Value>
    Codes& field(std::string_view header, Value T::*member, std::int32_t width = 1500,
                 std::optional<int> decimals = {}) {
        static_assert(KnownField<Value>,
                      "the type of this member is not known: specialise kxVsGrid::FieldText for it");
        source_->fields_.push_back(
            {std::string(header), text(member), width, FieldText<Value>::Kind, std::any(member), decimals});
        return *this;
    }
    /// Which records can be chosen; the others are refused with the reason, and not suggested. The list shows all:
    /// the headings of a tree of accounts say where an account belongs.
    Codes& selectable(std::function<bool(const T&)> may, std::string_view reason = "不能选用") {
        source_->selectable_ = std::move(may);
        source_->objection_ = reason;
        source_->forget();
        return *this;
    }
    /// What F2 lists, asked each time. It may throw. A table lists its records without it.
    Codes& list(std::function<std::vector<T>()> all) {
        source_->list_ = std::move(all);
        source_->forget();
        return *this;
    }
    /// What the list is called when it is empty, the column's caption without it; how wide it begins, in twips.
    Codes& title(std::string_view name, std::int32_t width = 0) {
        source_->title_ = name;
        source_->width_ = width;
        return *this;
    }
    /// The list has an edit button: the host changes the record of a code, or makes a new one, and answers what he
    /// has stored, which is highlighted then; nothing when he gave up. The list is asked for anew, and suggestions
    /// too. It may throw.
    Codes& edit(Edit change) {
        source_->edit_ = std::move(change);
        return *this;
    }
    /// The same of a code of another type.
    template <class Text>
    Codes& edit(std::function<std::optional<T>(const Text& code)> change) {
        return edit(Edit([change = std::move(change)](const std::string& code) {
            Text known{};
            return FieldText<Text>::read(code, known) ? change(known) : std::optional<T>();
        }));
    }
    /// F2 opens the host's own list instead, at this place of the screen, in twips; nothing when nothing was chosen.
    /// It may throw.
    Codes& choose(Choose choose) {
        source_->choose_ = std::move(choose);
        return *this;
    }
    /// The same of a text of another type.
    template <class Text>
    Codes& choose(std::function<std::optional<T>(std::int32_t x, std::int32_t y, const Text& typed)> choose) {
        return this->choose(
            Choose([choose = std::move(choose)](std::int32_t x, std::int32_t y, const std::string& typed) {
                Text known{};
                FieldText<Text>::read(typed, known);
                return choose(x, y, known);
            }));
    }
    /// What stands beside a suggested code. Without it the name.
    Codes& note(std::function<std::string(const T&)> text) {
        source_->note_ = std::move(text);
        source_->forget();
        return *this;
    }
    /// What is suggested, at once or later; the texts are codes. Without it a table suggests its records, and a
    /// function that is asked those of the list, which is read once when it is needed first: some thousand records in
    /// the time of a key. While the list throws nothing is suggested, and it is asked again with the next text.
    Codes& suggest(SuggestionSource suggestions) {
        source_->suggest_ = std::move(suggestions);
        return *this;
    }

    /// The record that a check would find; may throw as the function does that is asked.
    std::optional<T> find(std::string_view typed) const {
        const sheet::CodeSource::Found found = source_->find(typed);
        return found ? std::optional<T>(*static_cast<const T*>(found.get())) : std::nullopt;
    }
    std::shared_ptr<const sheet::CodeSource> source() const { return source_; }

  private:
    using Text = std::function<std::string(const T&)>;
    using IsMember = std::function<bool(const std::any& member)>;

    template <class Value>
    static IsMember comparing(Value T::*member) {
        return [member](const std::any& other) {
            const auto* const same = std::any_cast<Value T::*>(&other);
            return same && *same == member;
        };
    }
    template <class Value>
    static Text text(Value T::*member) {
        static_assert(KnownField<Value>,
                      "the type of this member is not known: specialise kxVsGrid::FieldText for it");
        return [member](const T& record) {
            std::string text;
            FieldText<Value>::append(text, record.*member);
            return text;
        };
    }

    struct Field {
        std::string header;
        Text text;
        std::int32_t width;
        FieldKind kind;
        std::any member;
        std::optional<int> decimals;
    };
    struct Key {
        Text text;
        std::function<std::string(std::string)> canonical;  ///< as it is written: 7 for 007, of a number
        IsMember is;
    };
    template <class Member>
    static Key keyed(Member T::*code) {
        static_assert(KnownField<Member>,
                      "the type of the code is not known: specialise kxVsGrid::FieldText for it");
        return {text(code),
                [](std::string typed) {
                    Member value{};
                    if (typed.empty() || !FieldText<Member>::read(typed, value)) return typed;
                    std::string written;
                    FieldText<Member>::append(written, value);
                    return written;
                },
                comparing(code)};
    }
    template <class Member>
    explicit Codes(Member T::*code) : source_(std::make_shared<Source>(keyed(code))) {}

    class Source : public sheet::CodeSource, public std::enable_shared_from_this<Source> {
      public:
        explicit Source(Key key) : key_(std::move(key)) {}

        Found find(std::string_view typed) const override;
        std::string codeOf(const void* found) const override { return key_.text(as(found)); }
        std::string nameOf(const void* found) const override;
        std::string objection(const void* found) const override {
            return !selectable_ || selectable_(as(found)) ? std::string() : objection_;
        }
        SuggestionSource suggestions() const override;
        bool listed() const override { return list_ || !find_; }
        HelpTable list(const std::string& caption) const override;
        std::int32_t listWidth() const override { return width_; }
        bool editable() const override { return static_cast<bool>(edit_); }
        Found edit(const std::string& code) const override {
            forget();  // also where it fails after it has stored something
            std::optional<T> stored = Edit(edit_)(code);
            forget();
            return kept(std::move(stored));
        }
        bool chosenByHost() const override { return static_cast<bool>(choose_); }
        Found choose(std::int32_t x, std::int32_t y, const std::string& typed) const override {
            return kept(Choose(choose_)(x, y, typed));
        }

        void forget() const {
            index_.reset();
            suggested_.reset();
        }

      private:
        friend class Codes;
        using Index = std::unordered_map<std::string, std::size_t>;

        static const T& as(const void* record) { return *static_cast<const T*>(record); }
        static Found kept(std::optional<T> found) {
            return found ? Found(std::make_shared<const T>(*std::move(found))) : nullptr;
        }
        Found ask(const std::string& typed) const;
        const Index& index() const;
        const SuggestionList& suggested() const;
        void suggest(SuggestionList& list, const T& record) const;
        std::vector<Field> columns(const std::string& caption) const;

        Key key_;
        Text name_;
        IsMember isName_;
        std::vector<Text> others_;
        std::vector<Text> aliases_;
        std::vector<Field> fields_;
        std::function<bool(const T&)> selectable_;
        std::string objection_;
        std::function<std::vector<T>()> list_;
        std::string title_;
        std::int32_t width_ = 0;
        Edit edit_;
        Choose choose_;
        Text note_;
        SuggestionSource suggest_;
        Find find_;  ///< none: the records
        std::shared_ptr<const std::vector<T>> records_ = std::make_shared<const std::vector<T>>();
        mutable std::unique_ptr<const Index> index_;
        mutable std::optional<SuggestionList> suggested_;
    };

    std::shared_ptr<Source> source_;
};

// --- The source of a column

/// As it was typed, else with plain digits and signs: a code may have those of full width.
template <class T>
sheet::CodeSource::Found Codes<T>::Source::find(std::string_view typed) const {
    const std::string text(sheet::trimmedCode(typed));
    if (text.empty()) return nullptr;
    if (Found found = ask(key_.canonical(text))) return found;
    const std::string plain = sheet::plainCode(text);
    return plain == text ? nullptr : ask(key_.canonical(plain));
}

template <class T>
sheet::CodeSource::Found Codes<T>::Source::ask(const std::string& typed) const {
    if (find_) return kept(Find(find_)(typed));
    const auto place = index().find(typed);
    return place == index().end() ? nullptr : Found(records_, &(*records_)[place->second]);
}

template <class T>
std::string Codes<T>::Source::nameOf(const void* found) const {
    std::string name = name_ ? name_(as(found)) : std::string();
    return name.empty() ? codeOf(found) : name;
}

template <class T>
const typename Codes<T>::Source::Index& Codes<T>::Source::index() const {
    if (index_) return *index_;
    auto index = std::make_unique<Index>();
    index->reserve(records_->size());
    for (std::size_t i = 0; i < records_->size(); ++i) index->try_emplace(key_.text((*records_)[i]), i);
    for (const Text& alias : aliases_)
        for (std::size_t i = 0; i < records_->size(); ++i)
            if (std::string other = alias((*records_)[i]); !other.empty())
                index->try_emplace(std::move(other), i);
    index_ = std::move(index);
    return *index_;
}

template <class T>
const SuggestionList& Codes<T>::Source::suggested() const {
    if (suggested_) return *suggested_;
    SuggestionList list;
    if (find_ && list_)
        for (const T& record : std::function(list_)()) suggest(list, record);
    else
        for (const T& record : *records_) suggest(list, record);
    return suggested_.emplace(std::move(list));
}

template <class T>
void Codes<T>::Source::suggest(SuggestionList& list, const T& record) const {
    if (!objection(&record).empty()) return;
    std::vector<std::string> names;
    if (name_) names.push_back(name_(record));
    for (const Text& other : others_) names.push_back(other(record));
    const std::vector<std::string_view> views(names.begin(), names.end());
    const std::string note = note_ ? note_(record) : name_ ? names.front() : std::string();
    list.add({codeOf(&record), {}, note}, views);
}

template <class T>
SuggestionSource Codes<T>::Source::suggestions() const {
    if (!suggest_ && find_ && !list_) return {};
    return [source = this->shared_from_this()](const SuggestionRequest& request) {
        if (source->suggest_) return SuggestionSource(source->suggest_)(request);
        try {
            source->suggested();
        } catch (...) {
            if (!source->find_) throw;
            return;  // what is typed is looked up too, which says why it cannot be
        }
        SuggestionList(source->suggested())(request);
    };
}

template <class T>
std::vector<typename Codes<T>::Field> Codes<T>::Source::columns(const std::string& caption) const {
    const auto shown = [&](const IsMember& is) {
        return std::any_of(fields_.begin(), fields_.end(),
                           [&](const Field& field) { return is(field.member); });
    };
    std::vector<Field> columns;
    if (!shown(key_.is)) columns.push_back({caption, key_.text, 1500, FieldKind::Text, {}, {}});
    if (name_ && !shown(isName_)) columns.push_back({"名称", name_, 3000, FieldKind::Text, {}, {}});
    columns.insert(columns.end(), fields_.begin(), fields_.end());
    return columns;
}

template <class T>
HelpTable Codes<T>::Source::list(const std::string& caption) const {
    const std::vector<Field> columns = this->columns(caption);
    sheet::CodeListing listing(title_.empty() ? caption : title_, others_.size());
    for (const Field& column : columns)
        listing.column(column.header, column.width, column.kind, column.decimals);
    const auto add = [&](const T& record) {
        std::vector<std::string> texts{codeOf(&record), nameOf(&record)};
        for (const Text& other : others_) texts.push_back(other(record));
        for (const Field& column : columns) texts.push_back(column.text(record));
        listing.record(texts);
    };
    if (list_)
        for (const T& record : std::function(list_)()) add(record);
    else
        for (const T& record : *records_) add(record);
    return listing.table();
}
}  // namespace kxVsGrid
