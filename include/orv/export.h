// Macros of the library's border: what is exported, and which type may alias another.
#pragma once

#if defined(_WIN32)
#if defined(ORV_BUILDING)
#define ORV_API __declspec(dllexport)
#else
#define ORV_API __declspec(dllimport)
#endif
#else
#define ORV_API __attribute__((visibility("default")))
#endif

/// Marks a class whose objects may be read and written through storage of another type with the same layout.
#if defined(__GNUC__)
#define ORV_MAY_ALIAS __attribute__((__may_alias__))
#else
#define ORV_MAY_ALIAS
#endif
