#include "orvexxml/frame/detail/NestingGuard.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {
namespace Detail {

namespace {
thread_local int t_nesting = 0;
}  // namespace

CNestingGuard::CNestingGuard()
{
    if (t_nesting >= MaxNesting)
        throw COrvexException(FormatString("Elements are nested deeper than %d levels", MaxNesting));
    ++t_nesting;
}

CNestingGuard::~CNestingGuard() { --t_nesting; }

}  // namespace Detail
}  // namespace OrvexXmlLib5
