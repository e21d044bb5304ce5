#ifndef ZELDT_BENCHMARKS_PEERS_VALUES_H
#define ZELDT_BENCHMARKS_PEERS_VALUES_H

/// What a ZelDtLong would be with other storage, in a shared library of its own: definedness,
/// working mode, overflow check, virtual destructor and calls out of line are the same.

#include "platform/framework/framework.h"

#include <cstdint>

#ifdef zel_benchmark_peers_EXPORTS
#define ZELPEERS_API ZELRT_EXPORT
#else
#define ZELPEERS_API ZELRT_IMPORT
#endif

namespace peers {

/// What a value keeps beside its number.
struct Condition {
    std::int32_t mode;
    std::int32_t defined;
    std::int32_t modified;
    const void* format;
};

/// Two blocks from malloc.
class ZELPEERS_API MallocStorage {
public:
    MallocStorage(std::int32_t number, int defined);
    MallocStorage(const MallocStorage& other);
    ~MallocStorage();
    MallocStorage& operator=(const MallocStorage&) = delete;

    Condition& GetCondition() const { return *m_condition; }
    std::int32_t& GetNumber() const { return *m_number; }

private:
    Condition* m_condition;
    std::int32_t* m_number;
};

/// The members themselves: no heap at all.
class ZELPEERS_API PlainStorage {
public:
    PlainStorage(std::int32_t number, int defined)
        : m_condition{0, defined, 0, nullptr}, m_number(number)
    {}

    Condition& GetCondition() { return m_condition; }
    std::int32_t& GetNumber() { return m_number; }
    const Condition& GetCondition() const { return m_condition; }
    const std::int32_t& GetNumber() const { return m_number; }

private:
    Condition m_condition;
    std::int32_t m_number;
};

/// Throws std::overflow_error when a result does not fit and std::logic_error when an undefined
/// value is read.
template <typename Storage>
class ZELPEERS_API Value {
public:
    Value();
    Value(int number);
    Value(const Value& source);
    virtual ~Value();
    Value& operator=(const Value& source);

    long GetValue() const;
    bool IsMissing() const;

    Value operator+(const Value& right) const;
    Value operator*(const Value& right) const;
    Value& operator+=(const Value& right);
    int operator<(const Value& right) const;

    /// Defined word and number, as ZelDtLong writes and reads them.
    virtual void Serialize(CArchive& ar);

private:
    Storage m_storage;
};

extern template class Value<MallocStorage>;
extern template class Value<PlainStorage>;

using MallocValue = Value<MallocStorage>;
using PlainValue = Value<PlainStorage>;

/// The least that can stand for a value: no virtual table, no destructor, returned in registers.
struct BareValue {
    std::int32_t number;
    std::int32_t defined;
    std::int32_t modified;
    std::int32_t mode;

    long GetValue() const { return number; }
};

ZELPEERS_API BareValue Sum(const BareValue& left, const BareValue& right);

} // namespace peers

#endif
