#include "orvexxml/collections/detail/TypedCollection.h"

#include "orvexxml/frame/FormatString.h"
#include "orvexxml/frame/OrvexException.h"

namespace OrvexXmlLib5 {
namespace Detail {

void CheckInsertIndex(int index, int count)
{
    if (index < 0 || index > count) throw COrvexInvalidParamException("Index out of range");
}

void CheckItemIndex(int index, int count)
{
    if (index < 0 || index >= count)
        throw COrvexInvalidParamException(FormatString("Index %d is out of range, use 0 - %d", index, count - 1));
}

}  // namespace Detail
}  // namespace OrvexXmlLib5
