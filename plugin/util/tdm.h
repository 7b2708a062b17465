#pragma once

#include <cstdarg>
#include <cstddef>

// Bounded memory and string functions. No state; any thread. Here memset_s clears what passcodes pass through,
// among others, and vnSafeHelper calls memcpy_s and strnlen_s; the rest is there for whoever was written against
// the family, and nobody here calls it.
//
// The mem and str functions test their arguments first, in a fixed order of the codes below, and answer 0 or the
// code. A failed argument test leaves the destination as it was; a code that is found while copying leaves what
// was copied so far. The order differs between functions, and so do some codes. Callers of this family were
// written against these answers, so they stay uneven.
namespace tdm {

inline constexpr std::size_t kMaxMemorySize = 104857600;
inline constexpr std::size_t kMaxStringSize = 65536;

inline constexpr int kNullPointer = 400;
inline constexpr int kZeroSize = 402;
inline constexpr int kSizeAboveLimit = 403;
inline constexpr int kOverlap = 404;
inline constexpr int kDestinationTooSmall = 406;

// Both copy count bytes; memcpy_s answers 404 when the two areas of count bytes share a byte.
int memcpy_s(void* destination, std::size_t size, const void* source, std::size_t count);
int memmove_s(void* destination, std::size_t size, const void* source, std::size_t count);

int memset_s(void* destination, std::size_t size, int value, std::size_t count);
// Unlike memset_s: a size or count of zero is a success, whatever the pointer.
int vn_memset_s(void* destination, std::size_t size, int value, std::size_t count);

// Compares count bytes as unsigned and stores -1, 0 or 1. A count above the size is 402 here.
int memcmp_s(const void* first, std::size_t size, const void* second, std::size_t count, int* result);

int strcpy_s(char* destination, std::size_t size, const char* source);
// Copies at most count characters and always ends them with a zero byte, which needs room of its own.
int strncpy_s(char* destination, std::size_t size, const char* source, std::size_t count);
// Appends. 406 also when the destination has no end within its size or within 65536 bytes.
int strcat_s(char* destination, std::size_t size, const char* source);

// The position of the first zero byte, or the limit; a limit below 2 counts as 1. 0 for a null text and for a
// limit above 65536.
std::size_t strnlen_s(const char* text, std::size_t limit);
// The whole length of the text, which the limit does not cap. 0 as in strnlen_s.
std::size_t wcsnlen_s(const wchar_t* text, std::size_t limit);

// The next token of a text that is cut in place, as the standard's bounded tokeniser gives it; null when there is
// none, for null arguments and for a remaining size above 65536. At most the remaining size and at most 64
// delimiters are looked at; when one of these bounds is met, the saved position becomes null.
char* strtok_s(char* text, std::size_t* remainingSize, const char* delimiters, char** savedPosition);

// The formatted length, or the negative of a code: -400, -402, -403, or -406 with an empty destination when the
// output does not fit.
[[gnu::format(printf, 3, 4)]] int sprintf_s(char* destination, std::size_t size, const char* format, ...);
[[gnu::format(printf, 3, 4)]] int snprintf_s(char* destination, std::size_t size, const char* format, ...);

// These two set errno as well, and refuse a format with "%n" that does not follow a "%": -22, errno 22.
// vsnprintf_s: a size of zero is -400 with errno 401; output that does not fit is cut, and its whole length is
// the answer.
int vsnprintf_s(char* destination, std::size_t size, const char* format, std::va_list arguments);
// vsprintf_s: the size is not tested; output that does not fit is -406 with errno 406.
int vsprintf_s(char* destination, std::size_t size, const char* format, std::va_list arguments);

// The standard's sscanf; -1 with errno 400 for a null text or format.
[[gnu::format(scanf, 2, 3)]] int sscanf_s(const char* text, const char* format, ...);

}  // namespace tdm
