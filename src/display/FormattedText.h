#pragma once

#include <cstdarg>
#include <cstdio>

namespace tolva {

// A short text with numbers in it, cut to 255 characters; checked by the compiler like printf.
class FormattedText {
 public:
  __attribute__((format(printf, 2, 3))) explicit FormattedText(const char* format, ...) {
    va_list values;
    va_start(values, format);
    std::vsnprintf(mText, sizeof mText, format, values);
    va_end(values);
  }

  operator const char*() const { return mText; }  // stands in for a text

 private:
  char mText[256];
};

}  // namespace tolva
