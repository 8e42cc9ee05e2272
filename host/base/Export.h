#pragma once

// Symbols are hidden by default; ZO_API marks what the shared libraries
// export. On ELF the same attribute serves both building and using them.
#define ZO_API __attribute__((visibility("default")))
