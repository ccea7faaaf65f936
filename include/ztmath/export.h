/* export.h - how the interface is declared: C linkage, visible outside the library. */
#ifndef ZTMATH_EXPORT_H
#define ZTMATH_EXPORT_H

#if defined(__GNUC__)
#define ZTMATH_API __attribute__((visibility("default")))
#else
#define ZTMATH_API
#endif

#ifdef __cplusplus
#define ZTMATH_BEGIN_DECLS extern "C" {
#define ZTMATH_END_DECLS }
#else
#define ZTMATH_BEGIN_DECLS
#define ZTMATH_END_DECLS
#endif

#endif
