// The smallest program: two values, their SQL texts, and an error with its first cause.

#include <ZelDt.h>

#include <cstdio>

int main()
{
    try {
        ZelDtLong pieces("12");
        pieces += 30;
        ZelDtString name("Schmidt");
        name.Insert("Firma ", 0);
        std::printf("%s: %s\n", name.ConvToSQL().GetValue(), pieces.ConvToSQL().GetValue());
        pieces = pieces / 0;
    } catch (ZelDtExcep* e) {
        const ZelEhBasis& cause = e->GetFirstCause();
        std::printf("%lu, because of %lu: %s\n", e->GetErrorNo(), cause.GetErrorNo(),
                    cause.GetErrorText());
        delete e;
    }
}
