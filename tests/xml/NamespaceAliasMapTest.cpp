// The caller's prefix table: keyed by URI, walked in URI order.
#include <gtest/gtest.h>

#include "TestUtil.h"
#include "orvexxml/frame/XmlSerializationContext.h"
#include "orvexxml/xml/NamespaceAliasMap.h"

using namespace OrvexXmlLib5;

TEST(NamespaceAliasMap, OneAliasPerNamespaceAndSharedOrEmptyAliasesAreRefused)
{
    CNamespaceAliasMap map;
    map.Add("a", "urn:1");
    map.Add("b", "urn:1");  // the last add for a URI wins
    EXPECT_EQ(1, map.GetNamespaceCount());
    EXPECT_EQ("b", map.GetAliasFromNamespace("urn:1"));
    EXPECT_FALSE(map.DoesAliasExist("a"));
    EXPECT_TRUE(map.DoesAliasExist("b"));
    map.Add("a", "urn:2");
    EXPECT_THROW_MSG(map.Add("a", "urn:1"), COrvexInvalidParamException,
                     "The namespace alias [a] is already used for [urn:2]");
    EXPECT_THROW_MSG(map.Add("", "urn:1"), COrvexInvalidParamException,
                     "The namespace alias for [urn:1] must not be empty");
    EXPECT_THROW_MSG(map.Add(nullptr, "urn:1"), COrvexInvalidParamException,
                     "The namespace alias for [urn:1] must not be empty");
    map.Add("a", "urn:2");
    map.Add("c", "urn:2");
    map.Add("a", "urn:1");  // free again once urn:2 took another
    EXPECT_EQ(2, map.GetNamespaceCount());
    EXPECT_EQ("urn:1", map.GetNamespaceFromAlias("a"));
    EXPECT_THROW_MSG(map.GetNamespaceFromAlias("zz"), COrvexException, "Namespace alias [zz] not found");
}

TEST(NamespaceAliasMap, WalkIsInUriOrderAndUnknownLookupLeavesAnEmptyEntry)
{
    CNamespaceAliasMap map;
    map.Add("c", "urn:c");
    map.Add("a", "urn:a");
    map.Add("b", "urn:b");
    EXPECT_EQ("urn:a", map.GetNamespaceAt(0));
    EXPECT_EQ("urn:c", map.GetNamespaceAt(2));
    EXPECT_EQ("urn:a", map.GetNamespaceAt(-4));  // below zero gives the first
    EXPECT_EQ("", map.GetAliasFromNamespace("urn:unknown"));
    EXPECT_TRUE(map.DoesNamespaceExist("urn:unknown"));
    EXPECT_EQ(4, map.GetNamespaceCount());
    map.RemoveNamespace("urn:other");
    map.RemoveNamespace("urn:unknown");
    EXPECT_EQ(3, map.GetNamespaceCount());

    // A context copies the map by value.
    CXmlSerializationContext context;
    context.GetNamespaceAliases().Add("p", "urn:p");
    CXmlSerializationContext copy(context);
    copy.GetNamespaceAliases().Add("q", "urn:q");
    EXPECT_EQ(1, context.GetNamespaceAliases().GetNamespaceCount());
    EXPECT_EQ(2, copy.GetNamespaceAliases().GetNamespaceCount());
}
