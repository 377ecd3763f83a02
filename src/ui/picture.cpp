#include "ui/picture.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>

namespace tamblin {
namespace {

using Microsoft::WRL::ComPtr;

HRSRC FindLargest(const wchar_t* name, int greatestHeight) {
    for (int height = greatestHeight; height > 0; --height)
        if (const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(height), name))
            return found;
    return nullptr;
}

// The pixels of a PNG file in memory; null when it cannot be read.
ComPtr<IWICBitmapSource> Decode(BYTE* file, DWORD size) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    const bool good = SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr,
                                                 CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory))) &&
                      SUCCEEDED(factory->CreateStream(&stream)) &&
                      SUCCEEDED(stream->InitializeFromMemory(file, size)) &&
                      SUCCEEDED(factory->CreateDecoderFromStream(
                          stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, &decoder)) &&
                      SUCCEEDED(decoder->GetFrame(0, &frame)) &&
                      SUCCEEDED(factory->CreateFormatConverter(&converter)) &&
                      SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                                      WICBitmapDitherTypeNone, nullptr, 0,
                                                      WICBitmapPaletteTypeCustom));
    return good ? converter : nullptr;
}

} // namespace

Picture::Picture(const wchar_t* name, int greatestHeight) {
    const HRSRC found = FindLargest(name, greatestHeight);
    if (!found)
        return;
    const auto source = Decode(static_cast<BYTE*>(LockResource(LoadResource(nullptr, found))),
                               SizeofResource(nullptr, found));
    UINT columns = 0;
    UINT rows = 0;
    if (!source || FAILED(source->GetSize(&columns, &rows)))
        return;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = static_cast<LONG>(columns);
    info.bmiHeader.biHeight = -static_cast<LONG>(rows); // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    handle.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bits || FAILED(source->CopyPixels(nullptr, columns * 4, columns * rows * 4,
                                           static_cast<BYTE*>(bits))))
        return;
    pixels = static_cast<std::uint32_t*>(bits);
    width = static_cast<int>(columns);
    height = static_cast<int>(rows);
}

void Picture::Tint(COLORREF colour) {
    std::for_each(pixels, pixels + width * height, [&](std::uint32_t& pixel) {
        const std::uint32_t opacity = pixel >> 24;
        const auto channel = [&](std::uint32_t value) {
            return (value * opacity + 127) / 255;
        };
        pixel = opacity << 24 | channel(GetRValue(colour)) << 16 | channel(GetGValue(colour)) << 8 |
                channel(GetBValue(colour));
    });
}

void Picture::Draw(HDC target, int left, int top, BYTE strength) const {
    const HDC source = CreateCompatibleDC(target);
    const HGDIOBJ former = SelectObject(source, handle.get());
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, strength, AC_SRC_ALPHA};
    // As AlphaBlend of msimg32.dll, which a program does not surely get from Windows' own folder.
    GdiAlphaBlend(target, left, top, width, height, source, 0, 0, width, height, blend);
    SelectObject(source, former);
    DeleteDC(source);
}

} // namespace tamblin
