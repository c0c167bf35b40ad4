#pragma once

#include <cstdarg>
#include <cstdio>

namespace tolva {

// A text formatted as by printf, cut to 255 characters. The compiler checks the arguments.
class FormattedText {
 public:
  __attribute__((format(printf, 2, 3))) explicit FormattedText(const char* format, ...) {
    va_list values;
    va_start(values, format);
    std::vsnprintf(mText, sizeof mText, format, values);
    va_end(values);
  }

  operator const char*() const { return mText; }

 private:
  char mText[256];
};

}  // namespace tolva
