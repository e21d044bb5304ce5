/// Code page 1252 to 850, from one buffer into another.
///
/// table: a loop over a table of 256 bytes. memcpy: the bytes unchanged; the limit.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "foundation/DT_IUTIL.h"
#include "platform/runtime/oemtables.h"

#include <cstring>

#ifdef ZELBENCH_HAVE_ICONV
#include <iconv.h>
#endif
#ifdef ZELBENCH_HAVE_ICU
#include <unicode/ucnv.h>
#endif

namespace zelbench {

namespace {

/// Room for one converted text and its terminator. All contenders of a job use the same, since
/// where it lies matters.
class Output {
public:
    explicit Output(std::size_t length) : m_bytes(new char[length + 1]), m_capacity(length + 1) {}

    char* Bytes() const { return m_bytes.get(); }
    std::size_t Capacity() const { return m_capacity; }
    std::string_view View(std::size_t length) const { return {m_bytes.get(), length}; }

    /// The text and its terminator, to be converted where they are.
    char* CopyOf(const std::string& text) const
    {
        std::memcpy(m_bytes.get(), text.c_str(), text.size() + 1);
        return m_bytes.get();
    }

private:
    std::shared_ptr<char[]> m_bytes;
    std::size_t m_capacity;
};

#ifdef ZELBENCH_HAVE_ICONV
void AddIconv(Job& job, const Operands<std::string>& texts, const Output& out)
{
    const std::shared_ptr<void> converter(iconv_open("CP850", "CP1252"), iconv_close);
    job.Add("iconv", texts, [converter, out](const std::string& text) {
        char* from = const_cast<char*>(text.data());
        std::size_t fromLeft = text.size();
        char* to = out.Bytes();
        std::size_t toLeft = out.Capacity();
        iconv(converter.get(), &from, &fromLeft, &to, &toLeft);
        return out.View(static_cast<std::size_t>(to - out.Bytes()));
    });
}
#endif

#ifdef ZELBENCH_HAVE_ICU
std::shared_ptr<UConverter> OpenConverter(const char* codePage)
{
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<UConverter> converter(ucnv_open(codePage, &status), ucnv_close);
    if (U_FAILURE(status))
        Fail("icu", u_errorName(status));
    return converter;
}

void AddIcu(Job& job, const Operands<std::string>& texts, const Output& out)
{
    job.Add("icu", texts,
            [ansi = OpenConverter("windows-1252"), oem = OpenConverter("ibm-850"),
             pivot = std::make_shared<std::vector<UChar>>(4096), out](const std::string& text) {
                UErrorCode status = U_ZERO_ERROR;
                const char* from = text.data();
                char* to = out.Bytes();
                UChar* pivotSource = pivot->data();
                UChar* pivotTarget = pivot->data();
                ucnv_convertEx(oem.get(), ansi.get(), &to, out.Bytes() + out.Capacity(), &from,
                               from + text.size(), pivot->data(), &pivotSource, &pivotTarget,
                               pivot->data() + pivot->size(), 1, 1, &status);
                return out.View(static_cast<std::size_t>(to - out.Bytes()));
            });
}
#endif

void AddPeers(Job& job, const Operands<std::string>& texts, const Output& out)
{
    job.Add("table", texts, [out](const std::string& text) {
        char* to = out.Bytes();
        for (const char c : text)
            *to++ = static_cast<char>(zelrt::kAnsiToOem850[static_cast<unsigned char>(c)]);
        return out.View(text.size());
    });
#ifdef ZELBENCH_HAVE_ICONV
    AddIconv(job, texts, out);
#endif
#ifdef ZELBENCH_HAVE_ICU
    AddIcu(job, texts, out);
#endif
    job.AddLimit("memcpy", texts, [out](const std::string& text) {
        std::memcpy(out.Bytes(), text.data(), text.size());
        return out.View(text.size());
    });
}

/// The conversion itself.
void AddCoreJob(const std::string& name, const Operands<std::string>& texts, const Output& out)
{
    Job job(name);
    job.Add("ours", texts, [out](const std::string& text) {
        zelrt::TranslateInPlace(out.CopyOf(text), text.size(), zelrt::kAnsiToOem850);
        return out.View(text.size());
    });
    AddPeers(job, texts, out);
}

/// The library's call on a terminated text.
void AddCallJob(const std::string& name, const Operands<std::string>& texts, const Output& out)
{
    Job job(name);
    job.Add("ours", texts, [out](const std::string& text) {
        ZelDtConvertCodePageFkt(out.CopyOf(text), ZelDtCpAnsiToOem850);
        return out.View(text.size());
    });
    AddPeers(job, texts, out);
}

template <typename MakeText>
Operands<std::string> MakeTexts(std::size_t count, std::size_t length, MakeText makeText)
{
    std::vector<std::string> texts;
    for (unsigned seed = 0; seed < count; ++seed)
        texts.push_back(makeText(length, seed));
    return Share(std::move(texts));
}

} // namespace

void AddCodePageJobs()
{
    constexpr std::size_t kBlock = 4096;
    constexpr std::size_t kBlocks = 4; // these and the output fit the first cache
    const auto plain = MakeTexts(kBlocks, kBlock, PlainText);
    const auto german = MakeTexts(kBlocks, kBlock, GermanText);

    AddCoreJob("codepage/plain-4KB", plain, Output(kBlock));
    AddCoreJob("codepage/german-4KB", german, Output(kBlock));
    AddCoreJob("codepage/german-1MB", MakeTexts(1, kLongText, GermanText), Output(kLongText));
    AddCallJob("codepage-call/plain-4KB", plain, Output(kBlock));
    AddCallJob("codepage-call/german-4KB", german, Output(kBlock));
}

} // namespace zelbench
