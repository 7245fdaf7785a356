// Marks the classes and functions that the shared library exports.
#pragma once

#if defined(ORVEXXML_STATIC)
#define ORVEXXML_API
#else
#define ORVEXXML_API __attribute__((visibility("default")))
#endif
