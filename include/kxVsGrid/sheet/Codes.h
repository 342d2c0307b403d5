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
// hold, so that what is said of one, also later, all of them know. They are used from one thread.
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

    /// These records; `code` is the member, of any type that a sheet knows as a text or a number, that they are known
    /// by. Of two with one code the first one has it. The index is made when it is needed first: some 0.2 µs a record.
    template <class Key>
    Codes(std::vector<T> records, Key T::*code) : source_(std::make_shared<Source>(keyed(code))) {
        replace(std::move(records));
    }
    /// A function that finds the record of what was typed, in a database for instance. It answers at once, is asked
    /// once for each check, and may throw when it cannot know.
    template <class Key>
    static Codes asking(Find find, Key T::*code) {
        Codes codes(code);
        codes.source_->find_ = std::move(find);
        return codes;
    }

    /// Other records from now on, in all sheets that use them. What stands there is looked up among them when it is
    /// typed or written next, or when faults are asked for. A function that was asked for codes is asked no more.
    void replace(std::vector<T> records) {
        source_->records_ = std::make_shared<const std::vector<T>>(std::move(records));
        source_->find_ = {};
        source_->forget();
    }

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
    /// A column of the list; width in twips. Those of code and name come first, where no field shows them.
    template <class Value>
    Codes& field(std::string_view header, Value T::*member, std::int32_t width = 1500) {
        static_assert(KnownField<Value>,
                      "the type of this member is not known: specialise kxVsGrid::FieldText for it");
        source_->fields_.push_back(
            {std::string(header), text(member), width, FieldText<Value>::Kind, std::any(member)});
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
        return *this;
    }
    /// What is suggested, at once or later; the texts are codes. A table suggests its records without it.
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

        void forget() {
            index_.reset();
            suggested_.reset();
        }

      private:
        friend class Codes;
        using Index = std::unordered_map<std::string, std::size_t>;

        static const T& as(const void* record) { return *static_cast<const T*>(record); }
        Found ask(const std::string& typed) const;
        const Index& index() const;
        const SuggestionList& suggested() const;
        std::vector<Field> columns(const std::string& caption) const;

        Key key_;
        Text name_;
        IsMember isName_;
        std::vector<Text> others_;
        std::vector<Field> fields_;
        std::function<bool(const T&)> selectable_;
        std::string objection_;
        std::function<std::vector<T>()> list_;
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
    if (find_) {
        std::optional<T> found = Find(find_)(typed);
        return found ? std::make_shared<const T>(*std::move(found)) : nullptr;
    }
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
    index_ = std::move(index);
    return *index_;
}

template <class T>
const SuggestionList& Codes<T>::Source::suggested() const {
    if (suggested_) return *suggested_;
    SuggestionList list;
    std::vector<std::string> names;
    for (const T& record : *records_) {
        if (!objection(&record).empty()) continue;
        names.clear();
        if (name_) names.push_back(name_(record));
        for (const Text& other : others_) names.push_back(other(record));
        const std::vector<std::string_view> views(names.begin(), names.end());
        list.add({codeOf(&record), {}, name_ ? names.front() : std::string()}, views);
    }
    return suggested_.emplace(std::move(list));
}

template <class T>
SuggestionSource Codes<T>::Source::suggestions() const {
    if (!suggest_ && find_) return {};
    return [source = this->shared_from_this()](const SuggestionRequest& request) {
        if (source->suggest_)
            SuggestionSource(source->suggest_)(request);
        else
            source->suggested()(request);
    };
}

template <class T>
std::vector<typename Codes<T>::Field> Codes<T>::Source::columns(const std::string& caption) const {
    const auto shown = [&](const IsMember& is) {
        return std::any_of(fields_.begin(), fields_.end(),
                           [&](const Field& field) { return is(field.member); });
    };
    std::vector<Field> columns;
    if (!shown(key_.is)) columns.push_back({caption, key_.text, 1500, FieldKind::Text, {}});
    if (name_ && !shown(isName_)) columns.push_back({"名称", name_, 3000, FieldKind::Text, {}});
    columns.insert(columns.end(), fields_.begin(), fields_.end());
    return columns;
}

template <class T>
HelpTable Codes<T>::Source::list(const std::string& caption) const {
    const std::vector<Field> columns = this->columns(caption);
    sheet::CodeListing listing(caption, others_.size());
    for (const Field& column : columns) listing.column(column.header, column.width, column.kind);
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
