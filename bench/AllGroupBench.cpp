// Reading xs:all classes whose children come in table order and in reverse order,
// against raw Expat on the same bytes. In reverse order each pass of the all-group
// walk takes one child, so the walk makes as many passes as there are children;
// the ratio reverse / in order shows what those passes cost. Records of 30 and of
// 120 children with the same number of elements in total tell whether the cost
// grows with the number of children per class.
#include "BenchSupport.h"
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "orvexxml/OrvexXmlLib5.h"
#include "orvexxml/OrvexXmlLib5Data.h"

namespace {

using namespace OrvexXmlLib5;
using namespace OrvexXmlLib5Data;

const char* const NS = "urn:orvex:bench";
constexpr int kElements = 240000;  // child elements per document, whatever the record width

std::string FieldName(int index)
{
    char name[8];
    std::snprintf(name, sizeof name, "F%03d", index);
    return name;
}

// A record of N optional integers F000..F(N-1) in an xs:all group, in the shape of
// generated code.
template <int N>
class CWide : public CXmlGeneratedClass
{
public:
    CWide() { SetElementName("R"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return NS; }
    std::string GetNamespace() const override { return NS; }
    void AccessProperty(int index, bool read, OrvexVariant& value) override
    {
        if (index < 0 || index >= N) throw COrvexInvalidParamException("Invalid property index");
        if (read)
            value.SetI4(m_fields[index]);
        else
            m_fields[index] = value.GetI4();
    }
    CParentElementInfo* GetClassInfo() const override { return Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().attributes; }
    void Init() override
    {
        for (int& field : m_fields) field = -1;
    }
    int Field(int index) const { return m_fields[index]; }

private:
    struct CTables
    {
        CTables()
            : info(new CParentElementInfo(ElementGroup_All, ElementType_Element, "R", NS, -1, true, false)),
              elements(new CElementInfo*[N + 1]),
              attributes(new CAttributeInfo* [1] { nullptr })
        {
            for (int i = 0; i < N; ++i) {
                names[i] = FieldName(i);
                elements[i] = new CElementInfoAllPrimOpt(names[i].c_str(), NS, i, ItemType_i4, nullptr,
                                                         CWhitespaceUtils::WhitespaceRule::Collapse,
                                                         CPrimitiveRestrictions("", -1, -1, "", "", "", "", -1));
            }
            elements[N] = nullptr;
        }
        ~CTables() { CXmlGeneratedClass::CleanMetaData(info, elements, attributes); }
        std::string names[N];
        CParentElementInfo* info;
        CElementInfo** elements;
        CAttributeInfo** attributes;
    };
    static const CTables& Tables()
    {
        static const CTables tables;
        return tables;
    }

    int m_fields[N];
};

template <int N>
class CWideCol : public CXmlCollection
{
public:
    CWideCol() : CXmlCollection("R", NS, 0, -1) {}
    CSmartPtr<CWide<N>> Item(int index) const
    {
        return CSmartPtr<CWide<N>>(static_cast<CWide<N>*>(GetNodeAtIndex(index)->GetItem()));
    }

protected:
    void ToXml_Int(CXmlWriter*, bool, const char*, const CXmlSerializationContext&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* firstChild, const CXmlSerializationContext& context,
                             bool) override
    {
        CXmlElement* current = firstChild;
        while (current && DoesElementNameMatch(context, current, "R", NS)) {
            CSmartPtr<CWide<N>> record(new CWide<N>());
            CXmlObjectBase::FromXml_Int(record.Get(), current, current->GetFirstElement(), context);
            AppendItem(record);
            current = current->GetNextSiblingElement();
        }
        return current;
    }
};

// The document element: a sequence of records.
template <int N>
class CTable : public CXmlGeneratedClass
{
public:
    CTable() : m_records(new CWideCol<N>()) { SetElementName("Table"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetTargetNamespace() const override { return NS; }
    std::string GetNamespace() const override { return NS; }
    void AccessProperty(int, bool read, OrvexVariant& value) override
    {
        if (read) value.SetXmlCollection(m_records);
    }
    CParentElementInfo* GetClassInfo() const override { return Tables().info; }
    CElementInfo** GetClassElementInfo() const override { return Tables().elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return Tables().attributes; }
    void Init() override { m_records->Clear(); }
    CSmartPtr<CWideCol<N>> Records() const { return m_records; }

private:
    struct CTables
    {
        CParentElementInfo* info =
            new CParentElementInfo(ElementGroup_Sequence, ElementType_Element, "Table", NS, -1, true, false);
        CElementInfo** elements = new CElementInfo* [2] { new CElementInfoSeqClsCol("R", NS, 0, ElementType_Element),
                                                          nullptr };
        CAttributeInfo** attributes = new CAttributeInfo* [1] { nullptr };
        ~CTables() { CXmlGeneratedClass::CleanMetaData(info, elements, attributes); }
    };
    static const CTables& Tables()
    {
        static const CTables tables;
        return tables;
    }

    CSmartPtr<CWideCol<N>> m_records;
};

template <int N>
std::string MakeDocument(bool reverse)
{
    std::string xml = "<Table xmlns=\"urn:orvex:bench\">";
    for (int record = 0; record < kElements / N; ++record) {
        xml += "<R>";
        for (int i = 0; i < N; ++i) {
            const int field = reverse ? N - 1 - i : i;
            const std::string name = FieldName(field);
            xml += "<" + name + ">" + std::to_string(field) + "</" + name + ">";
        }
        xml += "</R>";
    }
    return xml + "</Table>";
}

template <int N, bool Reverse>
const std::string& Document()
{
    static const std::string text = MakeDocument<N>(Reverse);
    return text;
}

template <int N, bool Reverse>
void RawExpat(benchmark::State& state)
{
    const std::string& xml = Document<N, Reverse>();
    for (auto _ : state) OrvexBench::ParseWithRawExpat(xml, state);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

template <int N, bool Reverse>
void Read(benchmark::State& state)
{
    const std::string& xml = Document<N, Reverse>();
    CSmartPtr<CTable<N>> table(new CTable<N>());
    for (auto _ : state) {
        table->FromXml(xml.c_str());
        benchmark::DoNotOptimize(table->Records()->GetCount());
    }
    // Every field must have reached its own property.
    if (table->Records()->GetCount() != kElements / N) std::abort();
    for (int i = 0; i < N; ++i)
        if (table->Records()->Item(0)->Field(i) != i) std::abort();
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * xml.size()));
}

BENCHMARK_TEMPLATE(RawExpat, 30, false)->Name("RawExpat30")->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK_TEMPLATE(Read, 30, false)->Name("InOrder30")->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK_TEMPLATE(Read, 30, true)->Name("Reverse30")->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK_TEMPLATE(RawExpat, 120, false)->Name("RawExpat120")->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK_TEMPLATE(Read, 120, false)->Name("InOrder120")->Unit(benchmark::kMillisecond)->MinTime(0.5);
BENCHMARK_TEMPLATE(Read, 120, true)->Name("Reverse120")->Unit(benchmark::kMillisecond)->MinTime(0.5);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::printf("xs:all records: %d child elements per document, %.1f MB (30 per record), %.1f MB (120 per record)\n",
                kElements, Document<30, false>().size() / 1048576.0, Document<120, false>().size() / 1048576.0);
    OrvexBench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatio("Reverse30", "InOrder30", "30 children: reverse / in order");
    reporter.PrintRatio("InOrder30", "RawExpat30", "30 children: in order / raw Expat");
    reporter.PrintRatio("Reverse30", "RawExpat30", "30 children: reverse / raw Expat");
    reporter.PrintRatio("Reverse120", "InOrder120", "120 children: reverse / in order");
    reporter.PrintRatio("Reverse120", "RawExpat120", "120 children: reverse / raw Expat");
    benchmark::Shutdown();
    return 0;
}
