// A picture in the form in which the system draws it.
#pragma once

#include "ui/picture.h"
#include "ui/windows_headers.h"

namespace tamblin {

class Bitmap {
  public:
    explicit Bitmap(const Picture& picture);
    ~Bitmap();
    Bitmap(const Bitmap&) = delete;
    Bitmap& operator=(const Bitmap&) = delete;

    int Width() const { return width; }
    int Height() const { return height; }
    HBITMAP Handle() const { return handle; }

    // Draws over what is there, as far as the picture covers it. `strength` is 0 to 255.
    void Draw(HDC target, int left, int top, BYTE strength = 255) const;

  private:
    int width;
    int height;
    HBITMAP handle;
};

} // namespace tamblin
