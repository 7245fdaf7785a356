// Feeds arbitrary bytes to the date, time and duration parsers. Whatever parses
// must print a text that parses to the same text, and arithmetic and comparison
// on the results must stay defined.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/values/DateTime.h"
#include "orvexxml/values/DateTimeSpan.h"

using namespace OrvexXmlLib5;

namespace {

template <typename Parse>
bool TryParse(CDateTime& v, const std::string& text, Parse parse)
{
    try {
        (v.*parse)(text.c_str());
    } catch (const COrvexInvalidValueException&) {
        return false;
    }
    CDateTime again;
    (again.*parse)(v.ToString().c_str());
    if (again.ToString() != v.ToString())
        std::abort();
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string first = text.substr(0, text.find('\n'));

    CDateTimeSpan span;
    bool haveSpan = true;
    try {
        span.ParseXSDDuration(text.c_str());
        CDateTimeSpan again;
        again.ParseXSDDuration(span.ToString().c_str());
        if (again.ToString() != span.ToString())
            std::abort();
    } catch (const COrvexInvalidValueException&) {
        haveSpan = false;
    }

    CDateTime values[3];
    const bool parsed[3] = {TryParse(values[0], first, &CDateTime::ParseXSDDateTime),
                            TryParse(values[1], first, &CDateTime::ParseXSDDate),
                            TryParse(values[2], first, &CDateTime::ParseXSDTime)};
    for (int i = 0; i < 3; ++i) {
        if (!parsed[i])
            continue;
        if (haveSpan) {
            const CDateTime sum = values[i] + span;
            const CDateTime difference = values[i] - span;
            (void)sum.CompareTo(difference);
            (void)sum.ToString();
            (void)span.CompareTo(CDateTimeSpan(1, 2, 3));
        }
        (void)values[i].GetNormalized().ToString();
        for (int j = 0; j < 3; ++j)
            if (parsed[j])
                (void)values[i].CompareTo(values[j]);
    }
    return 0;
}
