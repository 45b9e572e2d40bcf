// SPDX-License-Identifier: MIT
//
/// @file
/// The macros that the declarations of every header carry.
//
// ZEPH_API    what the library exports
// ZEPH_EMIT   documented inline members, exported too
// ZEPH_ADDED  our own inline additions, never exported
#ifndef ZEPH_PLATFORM_MACROS_H
#define ZEPH_PLATFORM_MACROS_H

/// ZEPH_API marks what the shared library exports; everything else stays hidden.
#if defined(ZEPH_STATIC)
#define ZEPH_API
#elif defined(_WIN32)
#ifdef ZEPH_BUILDING
#define ZEPH_API __declspec(dllexport)
#else
#define ZEPH_API __declspec(dllimport)
#endif
#else
#define ZEPH_API __attribute__((visibility("default")))
#endif

/// ZEPH_EMIT marks documented inline members: while the shared library itself is built they are
/// emitted as if used, so that every documented name is exported. (Visual C++ does so anyway.)
#if !defined(ZEPH_BUILDING) || defined(ZEPH_STATIC) || defined(_MSC_VER) || !defined(__GNUC__)
#define ZEPH_EMIT
#elif defined(_WIN32)
#define ZEPH_EMIT __attribute__((used, dllexport))
#else  // -fvisibility-inlines-hidden would hide them, whatever their class says
#define ZEPH_EMIT __attribute__((used, visibility("default")))
#endif

/// ZEPH_ADDED marks inline members that we add for convenience: they belong to the caller's program
/// and are never exported. (A tool that tells them apart defines it first.)
#if defined(ZEPH_ADDED)
#elif !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_ADDED __attribute__((visibility("hidden")))
#else
#define ZEPH_ADDED
#endif

// Including a file that does not exist stops every compiler at one line that says why.
#if __cplusplus < 201703L && !(defined(_MSVC_LANG) && _MSVC_LANG >= 201703L)
#include "ZEPHDataStructureEngine needs C++17 (-std=c++17 or /std:c++17)"
#endif

#endif  // ZEPH_PLATFORM_MACROS_H
