#ifndef ZELDT_FOUNDATION_DTSTATE_H
#define ZELDT_FOUNDATION_DTSTATE_H

/// The two parts that every value object owns: its state record and its implementation object.
/// Private to the library.
///
/// Both lie in one block of the pool, the value's cell: the record in front, the implementation
/// object behind it. A class asks for its cell when it constructs its base:
///
///     ZelDtLong::ZelDtLong(int number)
///         : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(new (*this) ZelDtLong_Imp(number))
///
/// The base gives the cell back when the class's own part has ended, so a constructor that fails
/// loses nothing. A value costs one look at the pool, one more when it ends, and one cache line.
///
/// With ZELDT_NO_POOL each part is a block of its own.

#include "foundation/DTBASIS.h"
#include "foundation/DTGUARD.h"
#include "foundation/DTPOOL.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>

class ZelDtBasisState final {
public:
    ZelDtBasisState(ZelDtWorkingMode workingMode, int isDefined, int isModified,
                    std::uint32_t blockSizeIndex)
        : mode(workingMode), defined(isDefined), modified(isModified), sizeIndex(blockSizeIndex)
    {}

    std::int32_t mode;
    std::int32_t defined;
    std::int32_t modified;
    std::uint32_t sizeIndex; ///< which size the block has
    const ZelFormat* format = nullptr;
};

namespace zeldt {

/// Which size a block has that holds a record and `more` bytes behind it.
template <std::size_t more>
constexpr std::uint32_t BlockSizeIndex()
{
#ifndef ZELDT_NO_POOL
    constexpr std::size_t index = SizeIndexOf(sizeof(ZelDtBasisState) + more);
    static_assert(index < kBlockSizeCount, "no block is that large");
    return index;
#else
    return 0;
#endif
}

/// Ends the record and what was behind it.
inline void DeleteState(ZelDtBasisState* state) noexcept
{
#ifndef ZELDT_NO_POOL
    ReturnBlock(state, state->sizeIndex);
#else
    delete state;
#endif
}

/// The state record of a value, for the sources of the library.
struct StateAccess {
    static ZelDtBasisState& Of(const ZelDtBasis& value) { return *value.m_pState; }
};

/// Whether both operands are defined, as most are.
inline bool AreDefined(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return StateAccess::Of(a).defined == 1 && StateAccess::Of(b).defined == 1;
}

/// Base of an implementation class, which has no derived classes. Its objects are made while the
/// value that owns them is being constructed, and that value names the class in its cell. Throws
/// std::bad_alloc when memory is exhausted.
template <typename Imp>
class PartOfCell {
public:
    static void* operator new(std::size_t, const ZelDtBasis& owner)
    {
#ifndef ZELDT_NO_POOL
        static_assert(alignof(Imp) <= alignof(ZelDtBasisState), "it follows the record directly");
        return &StateAccess::Of(owner) + 1;
#else
        static_cast<void>(owner);
        return ::operator new(sizeof(Imp));
#endif
    }

    static void operator delete(void* memory) noexcept
    {
#ifndef ZELDT_NO_POOL
        static_cast<void>(memory); // it goes with the record
#else
        ::operator delete(memory);
#endif
    }

    /// For a constructor that fails.
    static void operator delete(void* memory, const ZelDtBasis&) noexcept
    {
        operator delete(memory);
    }

protected:
    PartOfCell() = default;
    ~PartOfCell() = default;
};

extern std::atomic<ZelDtWorkingMode> defaultMode;

/// The mode that is stored where `mode` is asked for.
inline ZelDtWorkingMode Resolved(ZelDtWorkingMode mode)
{
    return mode == ZelDtWmDefault ? defaultMode.load(std::memory_order_relaxed) : mode;
}

inline constexpr Operation kConstructBasis = {"DTBASIS", "ZelDtBasis",
                                              "ZelDtBasis(BOOL,ZelDtWorkingMode)"};
inline constexpr Operation kCopyBasis = {"DTBASIS", "ZelDtBasis", "ZelDtBasis(ZelDtBasis&)"};

/// A block that the thread does not keep, under the name of the operation that needs it.
void* TakeFromStore(const Operation& operation, std::size_t sizeIndex);

/// Room for a record and `more` bytes behind it.
template <std::size_t more>
[[gnu::always_inline]] inline void* NewBlock(const Operation& operation)
{
#ifndef ZELDT_NO_POOL
    constexpr std::size_t index = BlockSizeIndex<more>();
    void* const kept = TakeKeptBlock(index);
    return kept != nullptr ? kept : TakeFromStore(operation, index);
#else
    return Guarded(operation, [] { return ::operator new(sizeof(ZelDtBasisState)); });
#endif
}

// The records of new values with `more` bytes behind them. In line wherever values are made.

template <std::size_t more>
[[gnu::always_inline]] inline ZelDtBasisState* NewState(int defined, ZelDtWorkingMode mode)
{
    void* const block = NewBlock<more>(kConstructBasis);
    const ZelDtWorkingMode resolved = Resolved(mode);
    return new (block) ZelDtBasisState(resolved, resolved == ZelDtWmAlwaysDefined ? 1 : defined, 0,
                                       BlockSizeIndex<more>());
}

template <std::size_t more>
[[gnu::always_inline]] inline ZelDtBasisState* NewState(const ZelDtBasis& source)
{
    void* const block = NewBlock<more>(kCopyBasis);
    const ZelDtBasisState& state = StateAccess::Of(source);
    return new (block) ZelDtBasisState(static_cast<ZelDtWorkingMode>(state.mode), state.defined,
                                       state.modified, BlockSizeIndex<more>());
}

/// The state record of a value that is about to be constructed, with room for the implementation
/// object. From the same arguments as the base class itself.
template <typename Imp>
class Cell {
public:
    [[gnu::always_inline]] Cell(int defined, ZelDtWorkingMode mode)
        : state(NewState<sizeof(Imp)>(defined, mode))
    {}
    [[gnu::always_inline]] explicit Cell(const ZelDtBasis& source)
        : state(NewState<sizeof(Imp)>(source))
    {}

    ZelDtBasisState* state;
};

} // namespace zeldt

template <typename Imp>
[[gnu::always_inline]] inline ZelDtBasis::ZelDtBasis(const zeldt::Cell<Imp>& cell)
    : CObject(), m_pState(cell.state)
{}

#endif
