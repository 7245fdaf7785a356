#include "orvexxml/metadata/detail/XsdPattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <new>
#include <unordered_map>

#include "orvexxml/data/BinaryData.h"
#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"
#include "orvexxml/frame/detail/ThreadOwned.h"
#include "orvexxml/platform/CodePage.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to)
{
    // No replacement text contains an escape that a later or the same step looks
    // for, so one left-to-right pass gives the same result as searching again
    // from the start after each replacement.
    std::string::size_type pos = text.find(from);
    if (pos == std::string::npos) return;
    std::string out;
    out.reserve(text.size() + 16);
    std::string::size_type last = 0;
    while (pos != std::string::npos) {
        out.append(text, last, pos - last);
        out += to;
        last = pos + from.size();
        pos = text.find(from, last);
    }
    out.append(text, last, std::string::npos);
    text.swap(out);
}

struct CompiledPattern
{
    unsigned int codePage = 0;
    pcre2_code* code = nullptr;
    pcre2_match_data* matchData = nullptr;
};

// Compiled patterns of this thread, keyed by the pattern as the facet holds it
// and the local code page it was read in. Compiling is deterministic, so a cached pattern gives
// the same results as a fresh one; failures are not cached.
class PatternCache
{
public:
    ~PatternCache() { Flush(); }

    CompiledPattern* Find(const std::string& pattern, unsigned int codePage)
    {
        // A facet is usually checked many times in a row: try the last one first.
        if (m_last && m_last->second.codePage == codePage && m_last->first == pattern) return &m_last->second;
        auto it = m_patterns.find(pattern);
        if (it == m_patterns.end()) return nullptr;
        if (it->second.codePage != codePage) {
            Free(it->second);
            m_patterns.erase(it);
            m_last = nullptr;
            return nullptr;
        }
        m_last = &*it;
        return &it->second;
    }

    CompiledPattern* Add(const std::string& pattern, CompiledPattern compiled)
    {
        if (m_patterns.size() >= MaxPatterns) Flush();
        m_last = &*m_patterns.emplace(pattern, compiled).first;
        return &m_last->second;
    }

private:
    static constexpr std::size_t MaxPatterns = 256;

    static void Free(CompiledPattern& compiled)
    {
        pcre2_match_data_free(compiled.matchData);
        pcre2_code_free(compiled.code);
    }

    void Flush()
    {
        for (auto& entry : m_patterns) Free(entry.second);
        m_patterns.clear();
        m_last = nullptr;
    }

    // Pointers to elements of an unordered_map stay valid until they are erased.
    std::unordered_map<std::string, CompiledPattern> m_patterns;
    std::pair<const std::string, CompiledPattern>* m_last = nullptr;
};


CompiledPattern Compile(const std::string& pattern, unsigned int codePage, const char* name)
{
    std::string translated = TranslateXsdPattern(LocalToUtf8Bytes(pattern).GetString());
    int errorCode = 0;
    PCRE2_SIZE errorOffset = 0;
    // Anchored when compiled rather than when matched: the same leftmost-first match
    // from offset 0, and the form PCRE2's JIT can run.
    pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(translated.data()), translated.size(),
                                     PCRE2_UTF | PCRE2_ANCHORED, &errorCode, &errorOffset, nullptr);
    if (!code) {
        PCRE2_UCHAR message[256];
        if (pcre2_get_error_message(errorCode, message, sizeof message) < 0) message[0] = 0;
        throw COrvexException(FormatString("Invalid Regular Expression: %s Error: '%s' for '%s'", pattern.c_str(),
                                           reinterpret_cast<const char*>(message), name));
    }
    // Without JIT support (or memory for it) the interpreter runs the same pattern.
    (void)pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    pcre2_match_data* matchData = pcre2_match_data_create_from_pattern(code, nullptr);
    if (!matchData) {
        pcre2_code_free(code);
        throw std::bad_alloc();
    }
    return CompiledPattern{codePage, code, matchData};
}

}  // namespace

std::string TranslateXsdPattern(const std::string& utf8Pattern)
{
    std::string text = utf8Pattern;
    ReplaceAll(text, "\\\\", "\x01");
    ReplaceAll(text, "\\i", "([^\\W\\d]|:)");
    ReplaceAll(text, "\\I", "([\\W\\d])");
    ReplaceAll(text, "\\c", "(\\w|\\.|-|:)");
    ReplaceAll(text, "\\C", "([^\\w\\.\\-\\:])");
    ReplaceAll(text, "\x01", "\\\\");
    return text;
}

bool MatchXsdPattern(const std::string& pattern, const std::string& utf8Subject, const char* name)
{
    const unsigned int codePage = GetLocalCharEncoding();
    // At the thread's end, after its cache is gone, a cache for this one call.
    PatternCache* cache = CThreadOwned<PatternCache>::Get();
    PatternCache callOnly;
    if (!cache) cache = &callOnly;
    CompiledPattern* compiled = cache->Find(pattern, codePage);
    if (!compiled) compiled = cache->Add(pattern, Compile(pattern, codePage, name));

    // Subjects come from the library's own UTF-8 encoder or are plain ASCII, so
    // they are valid UTF-8 and PCRE2's check of each subject can be left out.
    int rc = pcre2_match(compiled->code, reinterpret_cast<PCRE2_SPTR>(utf8Subject.data()), utf8Subject.size(), 0,
                         PCRE2_NO_UTF_CHECK, compiled->matchData, nullptr);
    // The JIT's fixed stack runs out on long subjects that the interpreter, with
    // its heap-based backtracking, still decides: those go to the interpreter.
    if (rc == PCRE2_ERROR_JIT_STACKLIMIT)
        rc = pcre2_match(compiled->code, reinterpret_cast<PCRE2_SPTR>(utf8Subject.data()), utf8Subject.size(), 0,
                         PCRE2_NO_UTF_CHECK | PCRE2_NO_JIT, compiled->matchData, nullptr);
    if (rc < 1) return false;
    const PCRE2_SIZE* ovector = pcre2_get_ovector_pointer(compiled->matchData);
    return ovector[0] == 0 && ovector[1] == utf8Subject.size();
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
