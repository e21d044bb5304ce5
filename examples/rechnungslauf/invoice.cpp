#include "invoice.h"

#include <utility>

namespace rechnungslauf {

namespace {

using auftraege::NumberFormat;
using auftraege::Require;

constexpr unsigned long kAmountPlaces = 2;
constexpr unsigned long kPercentPlaces = 3;
constexpr long kQuarterMinutes = 15;
constexpr long kQuartersAnHour = 4;

/// Room for the largest quantity and the sum of many positions.
const ZelDtDecimal kPriceLimit("1000000000000");

/// In 28 digits with so many decimals.
void SetPlaces(ZelDtDecimal& value, unsigned long places)
{
    // Equal numbers keep their decimals when they are assigned; what is typed has its own.
    const ZelFormat format = NumberFormat(places);
    value.SetFromOFL(value.ConvToOFL(&format), &format);
}

ZelDtDecimal Amount(ZelDtDecimal exact, ZelDtDecimal::Rundungsart kind)
{
    exact.Round(-static_cast<short>(kAmountPlaces), kind);
    SetPlaces(exact, kAmountPlaces);
    return exact;
}

ZelDtDecimal Rounded(const ZelDtDecimal& exact)
{
    return Amount(exact, ZelDtDecimal::RundungKaufmaennisch);
}

void CheckPercentage(const ZelDtDecimal& percentage, int least, const std::string& column)
{
    if (percentage < least || percentage > 100)
        throw Refusal{column, "Prozentsatz unmöglich"};
    ZelDtDecimal whole = percentage;
    whole.Truncate(kPercentPlaces);
    if (whole != percentage)
        throw Refusal{column, "Mehr als drei Nachkommastellen"};
}

std::size_t RateIndex(const ZelDtShort& rate)
{
    for (std::size_t i = 0; i < kTaxRates.size(); ++i) {
        if (rate == static_cast<int>(kTaxRates[i]))
            return i;
    }
    throw Refusal{"Steuersatz", "Steuersatz unbekannt"};
}

Position GoodsOf(const Order& order, const Article& article)
{
    Position position;
    position.order = order.number;
    position.kind = Position::kGoods;
    position.text = order.article;
    position.quantity = order.quantity;
    position.price = order.price;
    position.discount = order.discount;
    position.taxRate = article.taxRate;
    position.net = Rounded(order.quantity * order.price * (100 - order.discount) / 100);
    position.SetPlaces();
    return position;
}

Position WorkOn(const Order& order, const std::vector<Work>& work, const Customer& customer)
{
    Position position;
    position.order = order.number;
    position.kind = Position::kWork;
    position.text = "Arbeitszeit zu Auftrag " + ZelDtString(order.number);
    ZelDtTime time(0L, 0L);
    for (const Work& part : work)
        time += part.Duration();
    time.Round(ZelDtTime::RundenViertelstunde);
    position.time = time;
    position.price = customer.hourPrice.IsDefined() ? customer.hourPrice
                                                    : ZelDtDecimal(Customer::kUsualHourPrice);
    position.taxRate = ZelDtShort(static_cast<int>(kWorkTaxRate));
    const long quarters = time.GetTime(ZelDtTime::Minuten) / kQuarterMinutes;
    position.net = Rounded(position.price * quarters / kQuartersAnHour);
    position.SetPlaces();
    return position;
}

} // namespace

void Customer::CheckTerms() const
{
    if (daysToPay < 0 || daysToPay > kMostDaysToPay)
        throw Refusal{"Zahlungsziel", "Zahlungsziel unmöglich"};
    CheckPercentage(cashDiscount, 0, "Skonto");
    if (hourPrice < 0 || hourPrice >= kPriceLimit)
        throw Refusal{"Stundensatz", "Preis unmöglich"};
}

void Article::Check() const
{
    Require(number, "Nr");
    Require(name, "Bezeichnung");
    Require(taxRate, "Steuersatz");
    RateIndex(taxRate);
}

void Order::CheckForInvoice() const
{
    Require(number, "Nr");
    Require(customer, "Kunde");
    Require(article, "Artikel");
    Require(quantity, "Menge");
    Require(price, "Preis");
    Require(ordered, "Auftragsdatum");
    Require(status, "Status");
    Check();
    if (price >= kPriceLimit || price <= kPriceLimit * -1)
        throw Refusal{"Preis", "Preis unmöglich"};
    CheckPercentage(discount, -100, "Rabatt");
}

ZelDtTime Work::Duration() const
{
    Require(begin, "Beginn");
    Require(end, "Ende");
    if (end < begin)
        throw Refusal{"Ende", "Ende vor dem Beginn"};
    const ZelDtTime none(0L, 0L);
    if (pause < none)
        throw Refusal{"Pause", "Pause unter null"};
    const ZelDtTime duration = end - begin - pause;
    if (duration < none)
        throw Refusal{"Pause", "Pause länger als die Arbeit"};
    return duration;
}

void Position::SetPlaces()
{
    rechnungslauf::SetPlaces(price, kAmountPlaces);
    rechnungslauf::SetPlaces(discount, kPercentPlaces);
    rechnungslauf::SetPlaces(net, kAmountPlaces);
}

void Invoice::SetPlaces()
{
    for (std::size_t i = 0; i < kTaxRates.size(); ++i) {
        rechnungslauf::SetPlaces(net[i], kAmountPlaces);
        rechnungslauf::SetPlaces(tax[i], kAmountPlaces);
    }
    rechnungslauf::SetPlaces(gross, kAmountPlaces);
    rechnungslauf::SetPlaces(cashDiscount, kAmountPlaces);
}

ZelDtDecimal Invoice::Net() const
{
    return net[0] + net[1];
}

ZelDtDecimal Invoice::Tax() const
{
    return tax[0] + tax[1];
}

std::vector<Position> PositionsOf(const Order& order, const Article& article,
                                  const std::vector<Work>& work, const Customer& customer)
{
    order.CheckForInvoice();
    article.Check();
    customer.CheckTerms();
    std::vector<Position> positions{GoodsOf(order, article)};
    if (!work.empty())
        positions.push_back(WorkOn(order, work, customer));
    return positions;
}

Invoice MakeInvoice(const ZelDtLong& number, const Customer& customer, const ZelDtDateZp& date,
                    std::vector<Position> positions, const ZelDtDouble& weight)
{
    Invoice invoice;
    invoice.number = number;
    invoice.customer = customer.number;
    invoice.name = customer.name;
    invoice.date = date;
    invoice.due = DueDate(date, customer.daysToPay);
    invoice.weight = weight;
    invoice.net.fill(ZelDtDecimal(0));
    ZelDtTime time(0L, 0L);
    int line = 0;
    for (Position& position : positions) {
        position.invoice = number;
        position.line = ++line;
        invoice.net[RateIndex(position.taxRate)] += position.net;
        time += position.time;
    }
    invoice.time = time;
    for (std::size_t i = 0; i < kTaxRates.size(); ++i)
        invoice.tax[i] = Rounded(invoice.net[i] * static_cast<int>(kTaxRates[i]) / 100);
    invoice.gross = invoice.Net() + invoice.Tax();
    if (customer.cashDiscount.IsDefined() && invoice.gross > 0)
        invoice.cashDiscount =
            Amount(invoice.gross * customer.cashDiscount / 100, ZelDtDecimal::RundungZuNull);
    invoice.SetPlaces();
    invoice.positions = std::move(positions);
    return invoice;
}

ZelDtDateZp DueDate(const ZelDtDateZp& date, const ZelDtShort& daysToPay)
{
    constexpr long hoursADay = 24;
    constexpr long daysAWeek = 7;
    constexpr long saturday = 5;                  // counted from Monday, 0
    static const ZelDtDateZp aMonday(1, 1, 2001); // a time holds 204 years
    ZelDtDateZp due = date;
    due.AddDay365(daysToPay.IsDefined() ? static_cast<int>(daysToPay.GetValue())
                                        : Customer::kUsualDaysToPay);
    const ZelDtTime since = due - aMonday;
    const long days = since.GetTime(ZelDtTime::Stunden) / hoursADay;
    const long weekday = (days % daysAWeek + daysAWeek) % daysAWeek;
    if (weekday >= saturday)
        due.AddDay365(static_cast<int>(daysAWeek - weekday));
    return due;
}

ZelDtDateZp EndOfMonth(const ZelDtDateTime& date)
{
    // A month that does not have the day takes its last one.
    ZelDtDateZp end(31, 1, static_cast<int>(date.GetYear()));
    end.AddMonth(date.GetMonth() - 1);
    return end;
}

} // namespace rechnungslauf
