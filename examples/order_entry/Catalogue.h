// What the order entry looks up: goods by code, customers, warehouses. All throw DatabaseError.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "Database.h"
#include "Decimal.h"

struct Goods {
    QString code;
    QString name;
    QString spec;
    QString unit;
    Cents price = 0;
    QString pinyin = {};  ///< initials of the name
};

/// What a code stands for.
struct CodeAndName {
    QString code;
    QString name;
};

struct Customer {
    qint64 id = 0;
    QString code;
    QString name;
    QString pinyin;
    QString contact;
    QString phone;
};

class Catalogue {
  public:
    explicit Catalogue(Database& database) : database_(database) {}

    /// Nothing for an unknown code.
    std::optional<Goods> goods(const QString& code) const;
    /// The record of a query whose code field holds the text; nothing when there is none. Query and fields
    /// are the host's own, never a clerk's.
    std::optional<CodeAndName> find(const QString& query, const QString& codeField, const QString& nameField,
                                    const QString& text) const;
    /// By code, in whatever case, or by name.
    std::optional<CodeAndName> warehouse(const QString& typed) const;
    /// The goods whose code, name or pinyin initials start with the text, by code; at most `most`.
    std::vector<Goods> goodsStartingWith(const QString& text, int most) const;
    /// All of them, by code.
    std::vector<Goods> allGoods() const;
    /// New goods. The error of a code that is there already isDuplicate().
    void add(const Goods& goods);
    /// Other particulars for goods that are there, by their code.
    void change(const Goods& goods);
    std::vector<Customer> customers() const;
    std::vector<CodeAndName> warehouses() const;

  private:
    Database& database_;
};
