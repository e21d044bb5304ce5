// What the headers define themselves and no library exports: that each of these expressions means
// an operation of the values, with its result type, in C++17 and in C++20. Nothing here runs.

#include <ZelDt.h>

#include <ctime>
#include <type_traits>
#include <utility>

namespace {

template <typename Type>
const Type& A();

template <typename Result, typename Expression>
constexpr bool Is = std::is_same<Result, Expression>::value;

/// == and != give an int, as the operators of the values do.
template <typename L, typename R>
constexpr bool Equates = Is<int, decltype(A<L>() == A<R>())>&& Is<int, decltype(A<L>() != A<R>())>;

/// So do the other comparisons.
template <typename L, typename R>
constexpr bool Orders = Is<int, decltype(A<L>() < A<R>())>&& Is<int, decltype(A<L>() > A<R>())>&&
    Is<int, decltype(A<L>() <= A<R>())>&& Is<int, decltype(A<L>() >= A<R>())>;

template <typename L, typename R>
constexpr bool Compares = Equates<L, R>&& Orders<L, R>;

template <typename L, typename R>
constexpr bool ComparesBothWays = Compares<L, R>&& Compares<R, L>;

// Archives

template <typename Value>
constexpr bool Extracts =
    Is<CArchive&, decltype(std::declval<CArchive&>() >> std::declval<Value*&>())>;

static_assert(Extracts<ZelDtBool>, "");
static_assert(Extracts<ZelDtChar>, "");
static_assert(Extracts<ZelDtDateTime>, "");
static_assert(Extracts<ZelDtDateZp>, "");
static_assert(Extracts<ZelDtDecimal>, "");
static_assert(Extracts<ZelDtDouble>, "");
static_assert(Extracts<ZelDtLong>, "");
static_assert(Extracts<ZelDtShort>, "");
static_assert(Extracts<ZelDtString>, "");
static_assert(Extracts<ZelDtTime>, "");

// Strings with plain and framework texts, indexed by any integer

static_assert(ComparesBothWays<ZelDtString, const char*>, "");
static_assert(ComparesBothWays<ZelDtString, char[3]>, "");
static_assert(ComparesBothWays<ZelDtString, CString>, "");
static_assert(Is<ZelDtString, decltype(A<CString>() + A<ZelDtString>())>, "");
static_assert(Is<char, decltype(A<ZelDtString>()[1])>, "");
static_assert(Is<char, decltype(A<ZelDtString>()[1U])>, "");
static_assert(Is<char, decltype(A<ZelDtString>()[1L])>, "");
static_assert(Is<char, decltype(A<ZelDtString>()[sizeof(char)])>, "");
static_assert(std::is_constructible<ZelDtString, BSTR>::value, "");
static_assert(std::is_assignable<ZelDtString&, BSTR>::value, "");
static_assert(std::is_convertible<ZelDtString, BSTR>::value, "");

// Booleans with numbers and words, characters with characters, texts and strings

static_assert(Equates<ZelDtBool, BOOL> && Equates<BOOL, ZelDtBool>, "");
static_assert(Equates<const char*, ZelDtBool>, "");
static_assert(Equates<ZelDtChar, char> && Equates<char, ZelDtChar>, "");
static_assert(Equates<const char*, ZelDtChar>, "");
static_assert(Equates<ZelDtString, ZelDtChar>, "");

// Numbers with plain ones on the left

static_assert(Compares<int, ZelDtLong> && Compares<long, ZelDtLong>, "");
static_assert(Compares<int, ZelDtShort> && Compares<long, ZelDtShort>, "");
static_assert(Compares<int, ZelDtDouble> && Compares<long, ZelDtDouble>, "");
static_assert(Compares<double, ZelDtDouble>, "");
static_assert(Compares<int, ZelDtDecimal> && Compares<long, ZelDtDecimal>, "");
static_assert(Compares<double, ZelDtDecimal>, "");

// Numbers of different classes: the wider one is the class of the result

template <typename Narrow, typename Wide>
constexpr bool Mixes = ComparesBothWays<Narrow, Wide>&& Is<
    Wide, decltype(A<Narrow>() + A<Wide>())>&& Is<Wide, decltype(A<Wide>() + A<Narrow>())>&&
    Is<Wide, decltype(A<Narrow>() - A<Wide>())>&& Is<Wide, decltype(A<Wide>() - A<Narrow>())>&& Is<
        Wide, decltype(A<Narrow>() * A<Wide>())>&& Is<Wide, decltype(A<Wide>() * A<Narrow>())>&&
        Is<Wide, decltype(A<Narrow>() / A<Wide>())>&& Is<Wide, decltype(A<Wide>() / A<Narrow>())>&&
            Is<Wide&, decltype(std::declval<Wide&>() = A<Narrow>())>&&
                Is<Wide&, decltype(std::declval<Wide&>() += A<Narrow>())>&&
                    Is<Wide&, decltype(std::declval<Wide&>() -= A<Narrow>())>;

static_assert(Mixes<ZelDtShort, ZelDtLong>, "");
static_assert(Mixes<ZelDtShort, ZelDtDouble>, "");
static_assert(Mixes<ZelDtShort, ZelDtDecimal>, "");
static_assert(Mixes<ZelDtLong, ZelDtDouble>, "");
static_assert(Mixes<ZelDtLong, ZelDtDecimal>, "");
static_assert(Mixes<ZelDtDouble, ZelDtDecimal>, "");

template <typename Number>
constexpr bool LeavesRemainders = Is<ZelDtDecimal, decltype(A<Number>() % A<ZelDtDecimal>())>&&
    Is<ZelDtDecimal, decltype(A<ZelDtDecimal>() % A<Number>())>;

static_assert(LeavesRemainders<ZelDtShort>, "");
static_assert(LeavesRemainders<ZelDtLong>, "");
static_assert(LeavesRemainders<ZelDtDouble>, "");

// Dates with framework dates; of plain numbers, shorts and ints in any mixture

static_assert(ComparesBothWays<ZelDtDateTime, COleDateTime>, "");
static_assert(ComparesBothWays<ZelDtDateZp, COleDateTime>, "");
static_assert(ComparesBothWays<ZelDtDateZp, ZelDtDateTime>, "");
static_assert(std::is_constructible<ZelDtDateTime, short, int>::value, "");
static_assert(std::is_constructible<ZelDtDateTime, int, short, int, short, int, short>::value, "");
static_assert(std::is_constructible<ZelDtDateTime, std::time_t>::value, "");
static_assert(std::is_constructible<ZelDtDateTime, long>::value, "");
static_assert(std::is_constructible<ZelDtDateZp, short, int, short>::value, "");
static_assert(std::is_constructible<ZelDtDateZp, std::time_t>::value, "");
static_assert(std::is_constructible<ZelDtDateZp, long>::value, "");
static_assert(Is<ZelDtTime, decltype(A<ZelDtDateZp>() - A<ZelDtDateTime>())>, "");

} // namespace
