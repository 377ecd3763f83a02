// Puts bits together to bytes, the highest bit of each byte first.
#pragma once

#include <string>

namespace tamblin::lzh {

class BitWriter {
  public:
    void Put(unsigned value, unsigned count) {
        while (count > 0) {
            --count;
            current = current << 1 | (value >> count & 1);
            if (++filled == 8)
                Flush();
        }
    }

    std::string Finish() {
        if (filled > 0)
            Put(0, 8 - filled);
        return bytes;
    }

  private:
    void Flush() {
        bytes += static_cast<char>(current);
        current = 0;
        filled = 0;
    }

    std::string bytes;
    unsigned current = 0;
    unsigned filled = 0;
};

} // namespace tamblin::lzh
