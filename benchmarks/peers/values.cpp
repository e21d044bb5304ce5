#include "benchmarks/peers/values.h"

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace peers {

namespace {

template <typename Object>
Object* NewBlock(const Object& content)
{
    void* const memory = std::malloc(sizeof(Object));
    if (memory == nullptr)
        throw std::bad_alloc();
    return new (memory) Object(content);
}

std::int32_t Narrowed(std::int64_t wide)
{
    if (wide < INT32_MIN || wide > INT32_MAX)
        throw std::overflow_error("out of range");
    return static_cast<std::int32_t>(wide);
}

} // namespace

MallocStorage::MallocStorage(std::int32_t number, int defined)
    : m_condition(NewBlock(Condition{0, defined, 0, nullptr})), m_number(NewBlock(number))
{}

MallocStorage::MallocStorage(const MallocStorage& other)
    : m_condition(NewBlock(*other.m_condition)), m_number(NewBlock(*other.m_number))
{
    m_condition->format = nullptr;
}

MallocStorage::~MallocStorage()
{
    std::free(m_number);
    std::free(m_condition);
}

template <typename Storage>
Value<Storage>::Value() : m_storage(0, 0)
{}

template <typename Storage>
Value<Storage>::Value(int number) : m_storage(number, 1)
{}

template <typename Storage>
Value<Storage>::Value(const Value& source) : m_storage(source.m_storage)
{}

template <typename Storage>
Value<Storage>::~Value()
{}

template <typename Storage>
Value<Storage>& Value<Storage>::operator=(const Value& source)
{
    Condition& condition = m_storage.GetCondition();
    const Condition& other = source.m_storage.GetCondition();
    if (m_storage.GetNumber() != source.m_storage.GetNumber() || condition.defined != other.defined)
        condition.modified = 1;
    m_storage.GetNumber() = source.m_storage.GetNumber();
    condition.defined = other.defined;
    return *this;
}

template <typename Storage>
bool Value<Storage>::IsMissing() const
{
    const Condition& condition = m_storage.GetCondition();
    return condition.defined != 1 && condition.mode == 0;
}

template <typename Storage>
long Value<Storage>::GetValue() const
{
    if (IsMissing())
        throw std::logic_error("undefined");
    return m_storage.GetNumber();
}

template <typename Storage>
Value<Storage> Value<Storage>::operator+(const Value& right) const
{
    if (IsMissing() || right.IsMissing())
        return Value();
    return Value(Narrowed(std::int64_t{m_storage.GetNumber()} + right.m_storage.GetNumber()));
}

template <typename Storage>
Value<Storage> Value<Storage>::operator*(const Value& right) const
{
    if (IsMissing() || right.IsMissing())
        return Value();
    return Value(Narrowed(std::int64_t{m_storage.GetNumber()} * right.m_storage.GetNumber()));
}

template <typename Storage>
Value<Storage>& Value<Storage>::operator+=(const Value& right)
{
    const bool defined = !IsMissing() && !right.IsMissing();
    const std::int32_t addend = right.m_storage.GetNumber();
    std::int32_t& number = m_storage.GetNumber();
    Condition& condition = m_storage.GetCondition();
    if (!defined) {
        number = 0;
    } else if (addend != 0) {
        condition.modified = 1;
        number = Narrowed(std::int64_t{number} + addend);
    }
    condition.defined = defined;
    return *this;
}

template <typename Storage>
int Value<Storage>::operator<(const Value& right) const
{
    if (IsMissing() || right.IsMissing())
        throw std::logic_error("undefined");
    return m_storage.GetNumber() < right.m_storage.GetNumber();
}

template <typename Storage>
void Value<Storage>::Serialize(CArchive& ar)
{
    Condition& condition = m_storage.GetCondition();
    if (ar.IsStoring()) {
        ar << static_cast<DWORD>(condition.defined) << int{m_storage.GetNumber()};
        return;
    }
    DWORD defined = 0;
    std::int32_t number = 0;
    ar >> defined >> number;
    condition.defined = static_cast<std::int32_t>(defined);
    condition.modified = 1;
    m_storage.GetNumber() = number;
}

template class Value<MallocStorage>;
template class Value<PlainStorage>;

BareValue Sum(const BareValue& left, const BareValue& right)
{
    if (left.defined != 1 || right.defined != 1)
        return {0, 0, 0, left.mode};
    return {Narrowed(std::int64_t{left.number} + right.number), 1, 0, left.mode};
}

} // namespace peers
