#include "platform/runtime/textsearch.h"

#include "platform/runtime/shorttext.h"

#include <algorithm>
#include <cstring>

/// A match begins and ends with the right bytes. Sixteen places at a time are looked at for these
/// two, and where they stand the bytes between them are compared. That is fast as long as most
/// comparisons end soon; when too much has been compared in vain, the two-way algorithm of
/// Crochemore and Perrin goes on, which needs no memory and never more than linear time.

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// How many bytes two texts of a length have in common from their beginnings.
std::size_t CommonLength(const char* a, const char* b, std::size_t length) noexcept
{
    std::size_t i = 0;
    for (; length - i >= sizeof(std::uint64_t); i += sizeof(std::uint64_t)) {
        const auto difference =
            zelrt::LoadWord<std::uint64_t>(a + i) ^ zelrt::LoadWord<std::uint64_t>(b + i);
        if (difference != 0)
            return i + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
    }
    while (i < length && a[i] == b[i])
        ++i;
    return i;
}

/// A place where a pattern is cut in two, and a period of what lies behind it.
struct Cut {
    std::size_t position;
    std::size_t period;
};

/// The cut in front of the greatest suffix by the order that `comesBefore` says.
template <typename Order>
Cut GreatestSuffix(std::string_view pattern, Order comesBefore) noexcept
{
    Cut greatest{0, 1};
    std::size_t candidate = 1;
    std::size_t same = 0;
    while (candidate + same < pattern.size()) {
        const char inCandidate = pattern[candidate + same];
        const char inGreatest = pattern[greatest.position + same];
        if (comesBefore(inCandidate, inGreatest)) {
            candidate += same + 1;
            same = 0;
            greatest.period = candidate - greatest.position;
        } else if (inCandidate == inGreatest) {
            if (++same == greatest.period) {
                candidate += greatest.period;
                same = 0;
            }
        } else {
            greatest = {candidate, 1};
            ++candidate;
            same = 0;
        }
    }
    return greatest;
}

/// Where the pattern is to be cut so that a mismatch behind the cut allows a step beyond it.
Cut CriticalCut(std::string_view pattern) noexcept
{
    const Cut up = GreatestSuffix(pattern, [](char a, char b) { return a < b; });
    const Cut down = GreatestSuffix(pattern, [](char a, char b) { return a > b; });
    return up.position > down.position ? up : down;
}

std::size_t FindTwoWay(std::string_view text, std::string_view pattern, std::size_t start) noexcept
{
    auto [cut, period] = CriticalCut(pattern);
    const bool isPeriodic = pattern.substr(0, cut) == pattern.substr(period, cut);
    if (!isPeriodic)
        period = std::max(cut, pattern.size() - cut) + 1;

    // So many bytes at the begin of a periodic pattern are known to match after a step by a period.
    std::size_t known = 0;
    while (text.size() - start >= pattern.size()) {
        const char* const place = text.data() + start;
        const std::size_t from = std::max(cut, known);
        const std::size_t behind =
            from + CommonLength(pattern.data() + from, place + from, pattern.size() - from);
        if (behind < pattern.size()) {
            start += behind - cut + 1;
            known = 0;
            continue;
        }
        std::size_t front = cut;
        while (front > known && pattern[front - 1] == place[front - 1])
            --front;
        if (front <= known)
            return start;
        start += period;
        known = isPeriodic ? pattern.size() - period : 0;
    }
    return kNone;
}

/// Marks which of the bytes, 16 at most, are the wanted one.
unsigned MarksOf(const char* bytes, std::size_t size, __m128i wanted) noexcept
{
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_cmpeq_epi8(zelrt::LoadUpTo16(bytes, size), wanted)));
}

/// `pattern` has two bytes or more and fits into the text behind `start`.
std::size_t FindByEnds(std::string_view text, std::string_view pattern, std::size_t start) noexcept
{
    constexpr std::size_t block = sizeof(__m128i);
    constexpr std::size_t reserve = 1024; // enough for what usual texts have compared in vain
    const __m128i front = _mm_set1_epi8(pattern.front());
    const __m128i back = _mm_set1_epi8(pattern.back());
    const std::size_t distance = pattern.size() - 1;
    const std::size_t places = text.size() - distance;
    const std::size_t first = start;
    std::size_t compared = 0;
    while (start < places) {
        const std::size_t size = std::min(block, places - start);
        const char* const place = text.data() + start;
        unsigned marks = MarksOf(place, size, front) & MarksOf(place + distance, size, back) &
                         ((1U << size) - 1);
        for (; marks != 0; marks &= marks - 1) {
            const auto index = static_cast<std::size_t>(std::countr_zero(marks));
            const std::size_t same =
                CommonLength(place + index + 1, pattern.data() + 1, distance - 1);
            if (same == distance - 1)
                return start + index;
            compared += same;
        }
        start += size;
        if (compared > 2 * (start - first) + reserve)
            return FindTwoWay(text, pattern, start);
    }
    return kNone;
}

} // namespace

std::size_t zelrt::FindText(std::string_view text, std::string_view pattern,
                            std::size_t start) noexcept
{
    if (start > text.size() || text.size() - start < pattern.size())
        return kNone;
    return pattern.size() < 2 ? text.find(pattern, start) : FindByEnds(text, pattern, start);
}
