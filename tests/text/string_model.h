#ifndef ZELDT_TESTS_TEXT_STRING_MODEL_H
#define ZELDT_TESTS_TEXT_STRING_MODEL_H

#include "text/DTSTRING.h"

#include <algorithm>
#include <string>

namespace zeltest {

using Size = std::string::size_type;

inline Size At(int position)
{
    return static_cast<Size>(position);
}

/// What a string is expected to be: every rule in its simplest form, with no thought of speed.
struct StringModel {
    std::string text;
    int mode = ZelDtWmMissing;
    int defined = 0;
    int modified = 0;
    int alloc = 0;
    int last = -1;

    int Length() const { return static_cast<int>(text.size()); }
    bool IsMissing() const { return defined == 0 && mode == ZelDtWmMissing; }
    bool IsNull() const { return defined == 0 && mode == ZelDtWmNull; }

    void Mark(bool changed)
    {
        if (changed)
            modified = 1;
    }

    void SetDefined(int value)
    {
        Mark(value != defined);
        defined = value;
    }

    void Store(const std::string& value)
    {
        text = value;
        alloc = std::max(alloc, Length());
    }

    void Reset()
    {
        text.clear();
        alloc = 0;
        last = -1;
    }

    void Clear()
    {
        Mark(!text.empty());
        if (defined != 0 && mode != ZelDtWmAlwaysDefined)
            SetDefined(0);
        Reset();
    }

    /// Assignment of a text; an undefined target gets a block of exactly that length.
    void Assign(const std::string& value)
    {
        if (defined == 0)
            alloc = static_cast<int>(value.size());
        Mark(text != value);
        Store(value);
        SetDefined(1);
    }

    void AssignFrom(const StringModel& source)
    {
        if (source.defined != 0) {
            Assign(source.text);
        } else {
            Reset();
            SetDefined(0);
        }
    }

    void Append(const std::string& value)
    {
        const std::string sum = text + value;
        if (defined == 0)
            alloc = static_cast<int>(sum.size());
        Store(sum);
        SetDefined(1);
        Mark(!value.empty());
    }

    int GetPos(const std::string& pattern, int how)
    {
        if (text.empty() || pattern.empty())
            return -1;
        const int from =
            how == ZelDtString::kiNext && last != -1 ? last + static_cast<int>(pattern.size()) : 0;
        if (from > Length())
            return -1;
        const Size found = text.find(pattern, At(from));
        if (found == std::string::npos)
            return -1;
        last = static_cast<int>(found);
        return last;
    }

    /// Removes again and again from the start. -3 stands for error 3.
    int DeleteParts(const std::string& part, int how)
    {
        if (text.empty() || part.empty())
            return 0;
        const std::string before = text;
        if (how == ZelDtString::kiAll || how == ZelDtString::kiSingle) {
            for (Size found = text.find(part); found != std::string::npos;
                 found = text.find(part)) {
                text.erase(found, part.size());
                if (how == ZelDtString::kiSingle)
                    break;
            }
        } else if (how >= 0 && how <= Length()) {
            text.erase(At(how), part.size());
        } else {
            return -3;
        }
        Mark(text != before);
        return text != before ? 1 : 0;
    }

    int Change(const std::string& oldPart, const std::string& newPart, int how)
    {
        if (text.empty() || oldPart.empty())
            return 0;
        if (newPart.empty())
            return DeleteParts(oldPart, how);
        if (oldPart == newPart)
            return 1;
        if (how != ZelDtString::kiAll && how != ZelDtString::kiSingle) {
            const int result = DeleteParts(oldPart, how);
            if (result == 1)
                Put(newPart, how);
            return result;
        }
        int result = 0;
        Size found = text.find(oldPart);
        while (found != std::string::npos) {
            text.erase(found, oldPart.size());
            Put(newPart, static_cast<int>(found));
            result = 1;
            if (how == ZelDtString::kiSingle)
                break;
            found = text.find(oldPart, found + newPart.size());
        }
        return result;
    }

    void Put(const std::string& value, int position)
    {
        std::string changed = text;
        changed.insert(At(position), value);
        Store(changed);
        SetDefined(1);
        modified = 1;
    }
};

} // namespace zeltest

#endif
