#include "reader_under_test.h"

namespace tamblin::bench {

Readers MakeOtherReaders() {
    Readers readers;
    readers.push_back(MakeLibdeflateReader());
    readers.push_back(MakeLibarchiveReader());
    readers.push_back(MakeLhasaReader());
    readers.push_back(MakeSevenZipReader());
    return readers;
}

} // namespace tamblin::bench
