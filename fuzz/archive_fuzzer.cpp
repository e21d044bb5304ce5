#include <ZelDt.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// Any bytes as an archive: they are read as objects and as members. What comes out is a value, or
// an error of the archive; values stay usable.

namespace {

/// Runs the body; its errors are what they should be and are deleted.
template <typename Body>
void Tolerating(const Body& body)
{
    try {
        body();
    } catch (CException* e) {
        e->Delete();
    } catch (ZelEhBasis* e) {
        delete e;
    }
}

void Use(ZelDtBasis& value)
{
    Tolerating([&] {
        int defined = 0;
        unsigned short version = 0;
        const ZelDtString text = value.ConvToExtern(defined, version);
        value.SetFromExtern(&text, defined, version);
        value.ConvToOFL(nullptr);
        value.Clear();
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    std::vector<BYTE> bytes(data + 1, data + size);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));

    Tolerating([&] {
        CArchive ar(&file, CArchive::load);
        if (data[0] % 2 == 0) {
            // Objects until the archive ends or fails.
            std::vector<std::unique_ptr<CObject>> objects;
            for (int i = 0; i < 1000; ++i) {
                CObject* const object = ar.ReadObject(RUNTIME_CLASS(ZelDtBasis));
                bool known = object == nullptr;
                for (const auto& other : objects)
                    known = known || other.get() == object;
                if (!known)
                    objects.emplace_back(object);
            }
            for (const auto& object : objects)
                Use(static_cast<ZelDtBasis&>(*object));
        } else {
            ZelDtLong number;
            ZelDtString text;
            for (int i = 0; i < 1000; ++i) {
                number.Serialize(ar);
                text.Serialize(ar);
                Use(number);
                Use(text);
            }
        }
    });
    return 0;
}
