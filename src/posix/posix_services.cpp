#include "posix/posix_services.h"

#include <langinfo.h>
#include <locale.h>

namespace ordelan::posix {

char EnvironmentRegional::decimal_mark() {
  const locale_t environment = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (environment == nullptr) return '.';
  const char mark = *::nl_langinfo_l(RADIXCHAR, environment);
  ::freelocale(environment);
  return mark == ',' ? ',' : '.';
}

}  // namespace ordelan::posix
