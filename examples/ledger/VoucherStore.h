// The vouchers of the months and the accounts in the database. Everything throws DatabaseError.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Sqlite.h"
#include "kxVsGrid/sheet/RecordChanges.h"

namespace ledger {
using kxVsGrid::Date;
using kxVsGrid::Decimal;

struct Account {
    std::string code, name;
    bool leaf = false;  ///< no other account belongs to it
};

struct Entry {
    std::int64_t id = 0, version = 0, number = 0;
    std::string summary, account, name;
    Decimal debit, credit;

    friend bool operator==(const Entry&, const Entry&) = default;
};

struct Voucher {
    std::int64_t id = 0;  ///< 0: not saved yet
    Date month;           ///< its first day
};

class VoucherStore {
  public:
    /// A database that is new gets accounts and a voucher for the month before `today`.
    VoucherStore(const QString& file, const Date& today);

    /// With those of higher levels; names begin with theirs.
    std::vector<Account> accounts();
    Voucher voucher(const Date& month);
    std::vector<Entry> entries(const Voucher& voucher);
    /// All of it or nothing; writes ids and versions into voucher and changes.
    void save(Voucher& voucher, kxVsGrid::RecordChanges<Entry>& changes);

    Sqlite& database() { return database_; }

  private:
    Sqlite database_;
};

/// The first day of the month that a day is in, or of the one before.
Date monthOf(const Date& day);
Date monthBefore(const Date& day);
}  // namespace ledger
