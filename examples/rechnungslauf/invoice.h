#ifndef ZELDT_EXAMPLES_RECHNUNGSLAUF_INVOICE_H
#define ZELDT_EXAMPLES_RECHNUNGSLAUF_INVOICE_H

// What an invoice comes to, without any database.
//
// The rules:
// - Goods: quantity * price * (100 - discount) / 100, exact; then rounded to cents, ties away from
//   zero.
// - Work: the times of an order are added, the sum is brought up to quarters of an hour, multiplied
//   by the customer's price of an hour and rounded as above.
// - Tax: by rate, of the sum of the positions' net amounts and not of each position; rounded as
//   above.
// - Discount for cash: its percentage of the gross amount, cents cut off; none of a credit.
// - Due: the days of the customer's terms after the date of the invoice; what falls on a Saturday
//   or Sunday moves to the Monday.

#include "../auftraege.h"

#include <array>
#include <string>
#include <vector>

namespace rechnungslauf {

using auftraege::Refusal;

// What the computation starts from. What a row may lack is Null.

struct Customer {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtString name{ZelDtWmMissing};
    ZelDtString street{ZelDtWmNull};
    ZelDtString code{ZelDtWmNull};
    ZelDtString town{ZelDtWmNull};
    ZelDtString remark{ZelDtWmNull};
    ZelDtShort daysToPay{ZelDtWmNull};
    ZelDtDecimal cashDiscount{ZelDtWmNull}; ///< percent
    ZelDtDecimal hourPrice{ZelDtWmNull};

    static constexpr int kUsualDaysToPay = 14;
    static constexpr const char* kUsualHourPrice = "56.00";
    static constexpr int kMostDaysToPay = 365;

    /// Refuses terms that make no sense.
    void CheckTerms() const;
};

struct Article {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtString name{ZelDtWmMissing};
    ZelDtString unit{ZelDtWmNull};
    ZelDtShort taxRate{ZelDtWmMissing}; ///< percent, one of kTaxRates

    void Check() const;
};

struct Order : auftraege::Order {
    using auftraege::Order::Order;

    ZelDtString article{ZelDtWmMissing}; ///< begins with the name of an article
    ZelDtLong invoice{ZelDtWmNull};

    /// Refuses what is missing and what no invoice can carry.
    void CheckForInvoice() const;
};

/// A time that somebody worked on an order.
struct Work {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtLong order{ZelDtWmMissing};
    ZelDtString worker{ZelDtWmNull};
    ZelDtDateTime begin{ZelDtWmMissing};
    ZelDtDateTime end{ZelDtWmMissing};
    ZelDtTime pause{ZelDtWmNull};

    /// From begin to end without the break. Refuses what is missing, and times below zero.
    ZelDtTime Duration() const;
};

// What comes out

/// The tax rates in percent.
inline constexpr std::array<short, 2> kTaxRates = {19, 7};
inline constexpr short kWorkTaxRate = kTaxRates[0];

struct Position {
    ZelDtLong invoice{ZelDtWmMissing};
    ZelDtShort line{ZelDtWmMissing};
    ZelDtLong order{ZelDtWmMissing};
    ZelDtChar kind{ZelDtWmMissing}; ///< kGoods or kWork
    ZelDtString text{ZelDtWmMissing};
    ZelDtShort quantity{ZelDtWmNull}; ///< of goods
    ZelDtTime time{ZelDtWmNull};      ///< of work
    ZelDtDecimal price{ZelDtWmMissing};
    ZelDtDecimal discount{ZelDtWmNull}; ///< percent
    ZelDtShort taxRate{ZelDtWmMissing};
    ZelDtDecimal net{ZelDtWmMissing};

    static constexpr char kGoods = 'W';
    static constexpr char kWork = 'A';

    /// Brings amounts to two decimals and percentages to three, however a database gave them.
    void SetPlaces();
};

struct Invoice {
    ZelDtLong number{ZelDtWmMissing};
    ZelDtLong customer{ZelDtWmMissing};
    ZelDtString name{ZelDtWmMissing}; ///< of the customer
    ZelDtDateZp date{ZelDtWmMissing};
    ZelDtDateZp due{ZelDtWmMissing};
    // By rate, in the order of kTaxRates.
    std::array<ZelDtDecimal, kTaxRates.size()> net;
    std::array<ZelDtDecimal, kTaxRates.size()> tax;
    ZelDtDecimal gross{ZelDtWmMissing};
    ZelDtDecimal cashDiscount{ZelDtWmNull};
    ZelDtTime time{ZelDtWmMissing};
    ZelDtDouble weight{ZelDtWmMissing}; ///< kilograms
    std::vector<Position> positions;

    void SetPlaces();
    ZelDtDecimal Net() const;
    ZelDtDecimal Tax() const;
};

/// The positions of an order: its goods, and the work on it if there was any.
std::vector<Position> PositionsOf(const Order& order, const Article& article,
                                  const std::vector<Work>& work, const Customer& customer);

/// The invoice over these positions, which are numbered from 1. `weight` is that of all goods.
Invoice MakeInvoice(const ZelDtLong& number, const Customer& customer, const ZelDtDateZp& date,
                    std::vector<Position> positions, const ZelDtDouble& weight);

/// Years from 1900 to 2199.
ZelDtDateZp DueDate(const ZelDtDateZp& date, const ZelDtShort& daysToPay);

/// The last day of the date's month.
ZelDtDateZp EndOfMonth(const ZelDtDateTime& date);

} // namespace rechnungslauf

#endif
