// The customers, goods and warehouses that a new database starts with: 200, 5,000 and 6, the same every time.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

class Database;

struct SampleGoods {
    QString code;
    QString name;
    QString pinyin;  ///< initials, for lookups
    QString spec;
    QString unit;
    std::int64_t priceCents = 0;
};

struct SampleCustomer {
    QString code;
    QString name;
    QString pinyin;
    QString contact;
    QString phone;
};

inline constexpr int SampleGoodsCount = 5000;
inline constexpr int SampleCustomerCount = 200;

std::vector<SampleGoods> sampleGoods();
std::vector<SampleCustomer> sampleCustomers();
QStringList sampleWarehouses();

/// Inserts all of them; part of the transaction that creates the tables.
void writeSampleData(Database& database);
