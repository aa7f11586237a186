#ifndef ZLOG_STANDIN_ZLOG_H
#define ZLOG_STANDIN_ZLOG_H

// Stand-in for zlog where that library is not installed: the same signatures, as far as they are used here.
// Each record goes to GLib's structured logging (journal or console) with the fields CODE_FILE, CODE_FUNC,
// CODE_LINE, PRIORITY and ZLOG_LEVEL, under the category's name as GLib log domain.

#include <stdarg.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct zlog_category_s zlog_category_t;

/// The category of that name, made on first use; it lives as long as the process.
zlog_category_t* zlog_get_category(const char* name);

void zlog(zlog_category_t* category, const char* file, size_t filelen, const char* func, size_t funclen,
          long line, int level, const char* format, ...) __attribute__((format(printf, 8, 9)));
void vzlog(zlog_category_t* category, const char* file, size_t filelen, const char* func, size_t funclen,
           long line, int level, const char* format, va_list args);

/// Of the stand-in only: records below this level are dropped before they are formatted (20 debug, 40 info,
/// 60 notice, 80 warning, 100 error).
void zlog_standin_set_minimum_level(int level);

#ifdef __cplusplus
}
#endif

#endif
