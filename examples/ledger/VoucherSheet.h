// A voucher on a grid: entries whose debits and credits have to be alike before it is saved. It needs no window: the
// tests drive it on a machine without one.
#pragma once

#include <functional>
#include <string>

#include "VoucherStore.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace ledger {
class VoucherSheet {
  public:
    VoucherSheet(kxVsGrid::kxGrid& grid, VoucherStore& store) : store_(store), sheet_(grid) {
        accounts_.name(&Account::name)
            .selectable([](const Account& account) { return account.leaf; }, "只能选用末级科目");

        sheet_.identity(&Entry::id).version(&Entry::version).position(&Entry::number);
        sheet_.text("summary", "摘要", &Entry::summary).required().limit(40).stretch();
        sheet_.code("account", "科目", &Entry::account, accounts_)
            .found([](Entry& entry, const Account& account) { entry.name = account.name; })
            .cleared([](Entry& entry) { entry.name.clear(); })
            .required()
            .width("00000000000");
        sheet_.text("name", "科目名称", &Entry::name).readOnly().width("应付职工薪酬-社会保险费用");
        sheet_.number("debit", "借方金额", &Entry::debit).decimals(2).total().width("0,000,000,000.00");
        sheet_.number("credit", "贷方金额", &Entry::credit)
            .decimals(2)
            .total()
            .width("0,000,000,000.00")
            .enterToNextRow("summary");

        const auto oneSide = [](const Entry& entry) { return entry.debit == 0 || entry.credit == 0; };
        // Not of a side: a clerk who changes sides has neither for a moment.
        sheet_.rule(
            "name", [](const Entry& entry) { return entry.debit != 0 || entry.credit != 0; },
            "借方或贷方要填一方");
        sheet_.rule("debit", oneSide, "借方和贷方只能填一方");
        sheet_.rule("credit", oneSide, "借方和贷方只能填一方");
        sheet_.together([this](const std::vector<Entry>&) {
            return difference() == 0 ? std::string() : "借贷不平，差额 " + difference().text(2);
        });
    }

    void open(const Date& month) {
        const Voucher voucher = store_.voucher(monthOf(month));
        sheet_.load(store_.entries(voucher));
        voucher_ = voucher;
    }
    /// Adds the entries of the month before. False where it has none.
    bool copyMonthBefore() {
        const std::vector<Entry> entries = store_.entries(store_.voucher(monthBefore(voucher_.month)));
        sheet_.append(entries);
        return !entries.empty();
    }

    /// Debits less credits.
    Decimal difference() const { return sheet_.sum("debit") - sheet_.sum("credit"); }

    /// Why nothing was saved, for the clerk, who is taken to the place; empty when everything was.
    std::string save() try {
        const auto fault = sheet_.save([this](auto& changes) { store_.save(voucher_, changes); });
        return fault ? fault->text() : std::string();
    } catch (const DatabaseError& error) {
        return error.what();
    }

    kxVsGrid::Sheet<Entry>& sheet() { return sheet_; }
    const Voucher& voucher() const { return voucher_; }

  private:
    VoucherStore& store_;
    Voucher voucher_;
    kxVsGrid::Codes<Account> accounts_{store_.accounts(), &Account::code};
    kxVsGrid::Sheet<Entry> sheet_;
};
}  // namespace ledger
