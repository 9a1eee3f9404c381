#pragma once

/// Marks what the shared libraries export: what the headers in this folder declare, and no more.
#if defined(__GNUC__)
#define PAPERWAY_API __attribute__((visibility("default")))
#else
#define PAPERWAY_API
#endif
