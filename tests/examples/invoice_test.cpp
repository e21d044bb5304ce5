/// The computation of examples/rechnungslauf, without a database. What invoices come to on the
/// sample data, rechnungslauf_test.py computes on its own.

#include "examples/rechnungslauf/invoice.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace rechnungslauf;

std::string Text(const ZelDtDecimal& value)
{
    return value.ConvToSQL().GetValue();
}

std::string Text(const ZelDtDateZp& date)
{
    return ZelDtString(date).GetValue();
}

std::string Text(const ZelDtTime& time)
{
    return ZelDtString(time).GetValue();
}

Order MakeOrder(int quantity, const char* price, const char* discount = nullptr)
{
    Order order;
    order.number = 4711;
    order.customer = 7;
    order.article = "L\xF6"
                    "ffel, gro\xDF";
    order.quantity = quantity;
    order.price = ZelDtDecimal(price);
    if (discount != nullptr)
        order.discount = ZelDtDecimal(discount);
    order.ordered = ZelDtDateTime(3, 1, 2022, 10, 13, 0);
    order.express = FALSE;
    order.status = Order::kDelivered;
    return order;
}

Article MakeArticle(int taxRate = 19)
{
    Article article;
    article.number = 101;
    article.name = "L\xF6"
                   "ffel";
    article.taxRate = taxRate;
    return article;
}

Customer MakeCustomer()
{
    Customer customer;
    customer.number = 7;
    customer.name = "W\xFC"
                    "st";
    return customer;
}

Work MakeWork(const char* begin, const char* end, const char* pause = nullptr)
{
    Work work;
    work.number = 1;
    work.order = 4711;
    work.begin = ZelDtDateTime(begin, ZelDtDateTime::DateTimeString);
    work.end = ZelDtDateTime(end, ZelDtDateTime::DateTimeString);
    if (pause != nullptr)
        work.pause = ZelDtTime(pause);
    return work;
}

Invoice InvoiceOf(const std::vector<Position>& positions, const Customer& customer = MakeCustomer())
{
    return MakeInvoice(ZelDtLong(1), customer, ZelDtDateZp(31, 1, 2022), positions,
                       ZelDtDouble(2.5));
}

/// "Column: reason" of what an action refuses.
template <typename Action>
std::string RefusalOf(Action&& action)
{
    try {
        action();
        return "nothing";
    } catch (const Refusal& refusal) {
        return refusal.column + ": " + refusal.reason;
    }
}

TEST(Goods, NetIsRoundedCommerciallyOnce)
{
    const struct {
        int quantity;
        const char* price;
        const char* discount;
        const char* net;
    } rows[] = {{12, "1.20", nullptr, "14.40"},
                {1, "0.33", "50", "0.17"}, // 0.165
                {-1, "0.33", "50", "-0.17"},
                {1, "0.33", "50.001", "0.16"},  // 0.1649967
                {7, "9.99", "33.333", "46.62"}, // 46.6202331
                {3, "5", "100", "0.00"},
                {3, "5", "-10", "16.50"},
                {0, "5", nullptr, "0.00"},
                {32767, "999999999999.99", nullptr, "32766999999999672.33"},
                {-32768, "0.01", "0.001", "-327.68"}}; // 327.6767232
    for (const auto& row : rows) {
        const std::vector<Position> positions = PositionsOf(
            MakeOrder(row.quantity, row.price, row.discount), MakeArticle(), {}, MakeCustomer());
        ASSERT_EQ(positions.size(), 1U);
        EXPECT_EQ(Text(positions[0].net), row.net) << row.quantity << " * " << row.price;
        EXPECT_EQ(positions[0].kind, Position::kGoods);
        EXPECT_EQ(positions[0].order, 4711);
        EXPECT_STREQ(positions[0].text.GetValue(), "L\xF6"
                                                   "ffel, gro\xDF");
        EXPECT_EQ(positions[0].taxRate, 19);
        EXPECT_TRUE(positions[0].time.IsNull());
        EXPECT_EQ(positions[0].discount.IsNull(), row.discount == nullptr);
    }
}

TEST(WorkedHours, SumIsBroughtUpToQuarters)
{
    struct Row {
        std::vector<Work> work;
        const char* time;
        const char* net; // at 56.00 an hour
    };
    const Row rows[] = {
        {{MakeWork("03.01.2022 08:00", "03.01.2022 09:00")}, "01:00", "56.00"},
        {{MakeWork("03.01.2022 08:00", "03.01.2022 09:01")}, "01:15", "70.00"},
        // 0:20 and 0:20 are three quarters, not two halves of an hour
        {{MakeWork("03.01.2022 08:00", "03.01.2022 08:20"),
          MakeWork("04.01.2022 08:00", "04.01.2022 08:20")},
         "00:45",
         "42.00"},
        {{MakeWork("03.01.2022 08:00", "03.01.2022 12:00", "0:45")}, "03:15", "182.00"},
        {{MakeWork("03.01.2022 08:00", "03.01.2022 12:00", "0,75")}, "03:15", "182.00"},
        {{MakeWork("03.01.2022 22:30", "04.01.2022 06:00")}, "07:30", "420.00"},
        {{MakeWork("28.02.2024 23:00", "01.03.2024 01:00")}, "26:00", "1456.00"},
        {{MakeWork("03.01.2022 08:00", "03.01.2022 08:00")}, "00:00", "0.00"}};
    for (const Row& row : rows) {
        const std::vector<Position> positions =
            PositionsOf(MakeOrder(1, "1"), MakeArticle(7), row.work, MakeCustomer());
        ASSERT_EQ(positions.size(), 2U);
        EXPECT_EQ(Text(positions[1].time), row.time);
        EXPECT_EQ(Text(positions[1].net), row.net) << row.time;
        EXPECT_EQ(Text(positions[1].price), "56.00");
        EXPECT_EQ(positions[1].kind, Position::kWork);
        EXPECT_EQ(positions[1].taxRate, 19) << "work is not reduced where the goods are";
        EXPECT_TRUE(positions[1].quantity.IsNull());
        EXPECT_STREQ(positions[1].text.GetValue(), "Arbeitszeit zu Auftrag 4711");
    }
}

TEST(WorkedHours, CustomersHavePricesOfTheirOwn)
{
    Customer customer = MakeCustomer();
    customer.hourPrice = ZelDtDecimal("59.99");
    const std::vector<Position> positions =
        PositionsOf(MakeOrder(1, "1"), MakeArticle(),
                    {MakeWork("03.01.2022 08:00", "03.01.2022 08:10")}, customer);
    EXPECT_EQ(Text(positions[1].net), "15.00"); // 14.9975
    EXPECT_EQ(Text(positions[1].price), "59.99");
}

TEST(Taxes, AreRoundedByRateAndNotByPosition)
{
    std::vector<Position> positions;
    for (const int rate : {19, 19, 7, 19, 7}) {
        const std::vector<Position> more =
            PositionsOf(MakeOrder(1, "0.13"), MakeArticle(rate), {}, MakeCustomer());
        positions.insert(positions.end(), more.begin(), more.end());
    }
    const Invoice invoice = InvoiceOf(positions);
    EXPECT_EQ(Text(invoice.net[0]), "0.39");
    EXPECT_EQ(Text(invoice.tax[0]), "0.07"); // 0.0741; by position it would be 0.06
    EXPECT_EQ(Text(invoice.net[1]), "0.26");
    EXPECT_EQ(Text(invoice.tax[1]), "0.02"); // 0.0182
    EXPECT_EQ(Text(invoice.gross), "0.74");
    EXPECT_EQ(invoice.positions.size(), 5U);
    EXPECT_EQ(invoice.positions[4].line, 5);
    EXPECT_EQ(invoice.positions[4].invoice, 1);
}

TEST(Taxes, TiesGoAwayFromZero)
{
    // 0.50 * 0.19 = 0.095, 0.50 * 0.07 = 0.035
    for (const int sign : {1, -1}) {
        for (const int rate : {19, 7}) {
            const Invoice invoice = InvoiceOf(
                PositionsOf(MakeOrder(sign, "0.50"), MakeArticle(rate), {}, MakeCustomer()));
            EXPECT_EQ(Text(invoice.Tax()),
                      std::string(sign < 0 ? "-" : "") + (rate == 19 ? "0.10" : "0.04"));
        }
    }
}

TEST(CashDiscount, CentsAreCutOff)
{
    Customer customer = MakeCustomer();
    customer.cashDiscount = ZelDtDecimal("2.25");
    const auto discountOf = [&](int quantity) {
        return InvoiceOf(PositionsOf(MakeOrder(quantity, "100"), MakeArticle(), {}, customer),
                         customer)
            .cashDiscount;
    };
    EXPECT_EQ(Text(discountOf(1)), "2.67"); // 119.00: 2.6775
    EXPECT_TRUE(discountOf(-1).IsNull()) << "a credit has none";
    EXPECT_TRUE(discountOf(0).IsNull());
    customer.cashDiscount.Clear();
    EXPECT_TRUE(discountOf(1).IsNull());
}

TEST(DueDates, MoveOffWeekends)
{
    const struct {
        const char* date;
        int days;
        const char* due;
    } rows[] = {{"31.12.2024", 0, "31.12.2024"},                                    // a Tuesday
                {"31.12.2024", 4, "06.01.2025"},                                    // a Saturday
                {"31.12.2024", 5, "06.01.2025"},                                    // a Sunday
                {"31.12.2024", 6, "06.01.2025"},   {"31.12.2024", 3, "03.01.2025"}, // a Friday
                {"30.01.2024", 30, "29.02.2024"},                                   // a Thursday
                {"30.01.2023", 30, "01.03.2023"},  {"28.02.2025", 1, "03.03.2025"},
                {"31.12.2023", 365, "30.12.2024"}, {"01.01.1900", 0, "01.01.1900"}, // a Monday
                {"01.01.1900", 6, "08.01.1900"},   {"30.12.1900", 0, "31.12.1900"}, // a Sunday
                {"31.12.2199", 4, "06.01.2200"}}; // Tuesday, and Saturday
    for (const auto& row : rows)
        EXPECT_EQ(Text(DueDate(ZelDtDateZp(row.date), ZelDtShort(row.days))), row.due)
            << row.date << " and " << row.days;
    // Without terms: 14 days.
    EXPECT_EQ(Text(DueDate(ZelDtDateZp("03.01.2022"), ZelDtShort(ZelDtWmNull))), "17.01.2022");
}

TEST(DueDates, MonthsEnd)
{
    const struct {
        const char* date;
        const char* end;
    } rows[] = {{"01.01.2024 07:00", "31.01.2024"}, {"29.02.2024 07:00", "29.02.2024"},
                {"03.02.1900 00:00", "28.02.1900"}, {"30.04.2022 23:59", "30.04.2022"},
                {"15.11.2022 12:00", "30.11.2022"}, {"31.12.2022 12:00", "31.12.2022"}};
    for (const auto& row : rows)
        EXPECT_EQ(Text(EndOfMonth(ZelDtDateTime(row.date, ZelDtDateTime::DateTimeString))),
                  row.end);
}

TEST(Refusals, OrdersThatNoInvoiceCanCarry)
{
    const auto refusal = [](auto&& spoil) {
        Order order = MakeOrder(1, "5.00", "10");
        Article article = MakeArticle();
        Customer customer = MakeCustomer();
        std::vector<Work> work{MakeWork("03.01.2022 08:00", "03.01.2022 09:00", "0:15")};
        spoil(order, article, customer, work[0]);
        return RefusalOf([&] { PositionsOf(order, article, work, customer); });
    };
    using O = Order&;
    using A = Article&;
    using C = Customer&;
    using W = Work&;
    EXPECT_EQ(refusal([](O, A, C, W) {}), "nothing");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.quantity.Clear(); }), "Menge: Angabe fehlt");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.price.Clear(); }), "Preis: Angabe fehlt");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.customer.Clear(); }), "Kunde: Angabe fehlt");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.status.Clear(); }), "Status: Angabe fehlt");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.status = 'x'; }), "Status: Status unbekannt");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.discount = ZelDtDecimal("100.001"); }),
              "Rabatt: Prozentsatz unmöglich");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.discount = ZelDtDecimal("1.0005"); }),
              "Rabatt: Mehr als drei Nachkommastellen");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.price = ZelDtDecimal("1000000000000"); }),
              "Preis: Preis unmöglich");
    EXPECT_EQ(refusal([](O order, A, C, W) { order.price = ZelDtDecimal("-1000000000000"); }),
              "Preis: Preis unmöglich");
    EXPECT_EQ(refusal([](O, A article, C, W) { article.taxRate = 16; }),
              "Steuersatz: Steuersatz unbekannt");
    EXPECT_EQ(refusal([](O, A, C customer, W) { customer.daysToPay = -1; }),
              "Zahlungsziel: Zahlungsziel unmöglich");
    EXPECT_EQ(refusal([](O, A, C customer, W) { customer.daysToPay = 366; }),
              "Zahlungsziel: Zahlungsziel unmöglich");
    EXPECT_EQ(refusal([](O, A, C customer, W) { customer.cashDiscount = ZelDtDecimal(101); }),
              "Skonto: Prozentsatz unmöglich");
    EXPECT_EQ(refusal([](O, A, C customer, W) { customer.hourPrice = ZelDtDecimal("-0.01"); }),
              "Stundensatz: Preis unmöglich");
    EXPECT_EQ(refusal([](O, A, C, W work) { work.end.Clear(); }), "Ende: Angabe fehlt");
    EXPECT_EQ(refusal([](O, A, C, W work) { work.end.SubMin(61); }), "Ende: Ende vor dem Beginn");
    EXPECT_EQ(refusal([](O, A, C, W work) { work.pause = ZelDtTime("1:01"); }),
              "Pause: Pause länger als die Arbeit");
    EXPECT_EQ(refusal([](O, A, C, W work) { work.pause = ZelDtTime("-0:01"); }),
              "Pause: Pause unter null");
}

TEST(Sums, WeightAndTimeAndParties)
{
    Customer customer = MakeCustomer();
    customer.daysToPay = 30;
    std::vector<Position> positions =
        PositionsOf(MakeOrder(2, "10"), MakeArticle(),
                    {MakeWork("03.01.2022 08:00", "03.01.2022 08:50")}, customer);
    const Invoice invoice = InvoiceOf(positions, customer);
    EXPECT_EQ(Text(invoice.time), "01:00");
    EXPECT_EQ(invoice.weight.GetValue(), 2.5);
    EXPECT_EQ(Text(invoice.Net()), "76.00");
    EXPECT_EQ(Text(invoice.Tax()), "14.44");
    EXPECT_EQ(Text(invoice.gross), "90.44");
    EXPECT_EQ(Text(invoice.date), "31.01.2022");
    EXPECT_EQ(Text(invoice.due), "02.03.2022");
    EXPECT_EQ(invoice.customer, 7);
    EXPECT_STREQ(invoice.name.GetValue(), "W\xFC"
                                          "st");
}

TEST(Places, AreTheSameHoweverADatabaseGaveThem)
{
    for (const char* const text : {"12.5", "12.50", "12.5000"}) {
        Position position;
        position.price = ZelDtDecimal(text);
        position.discount = ZelDtDecimal(text);
        position.net = ZelDtDecimal(text);
        position.SetPlaces();
        EXPECT_EQ(Text(position.price), "12.50");
        EXPECT_EQ(Text(position.discount), "12.500");
        EXPECT_EQ(Text(position.net), "12.50");
    }
    Position position;
    position.net = ZelDtDecimal(0);
    position.SetPlaces();
    EXPECT_EQ(Text(position.net), "0.00");
    EXPECT_TRUE(position.discount.IsNull());
}

} // namespace
