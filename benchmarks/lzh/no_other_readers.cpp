#include "reader_under_test.h"

namespace tamblin::bench {

Readers MakeOtherReaders() {
    return {};
}

} // namespace tamblin::bench
