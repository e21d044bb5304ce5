#include <ZELQRNDT017/numeric/DTLONG.h>
#include <ZelDt.h>

#include <cstdio>
#include <cstring>

// A caller's program: values, an error caught across the library border, a class found by name.

int main()
{
    const ZelDtLong sum = ZelDtLong(40) + ZelDtLong("2");
    const ZelDtString text(sum);

    unsigned long firstCause = 0;
    try {
        ZelDtLong("12x");
    } catch (ZelDtExcep* e) {
        firstCause = e->GetFirstCause().GetErrorNo();
        delete e;
    }

    CRuntimeClass* const found = CRuntimeClass::FromName("ZelDtLong");
    const bool works = text == "42" && firstCause == 5 && found == RUNTIME_CLASS(ZelDtLong);
    std::puts(works ? "the library works for this caller" : "the library does not work");
    return works ? 0 : 1;
}
