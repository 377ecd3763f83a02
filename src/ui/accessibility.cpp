#include "ui/accessibility.h"

#include <objbase.h>

#include <oleacc.h>

#include "base/win32/function_of.h"
#include "ui/system_library.h"

namespace tamblin {
namespace {

// Not imported: Windows would take an oleacc.dll that lies beside the program.
HMODULE Oleacc() {
    static const HMODULE library = SystemLibrary(L"oleacc.dll");
    return library;
}

IAccPropServices* Service() {
    static void* const service = [] {
        void* created = nullptr;
        CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                         &created);
        return created;
    }();
    return static_cast<IAccPropServices*>(service);
}

void Annotate(HWND window, const MSAAPROPID& property, const std::wstring& text) {
    if (IAccPropServices* const service = Service())
        service->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, property,
                                text.c_str());
}

// The automation property LiveSetting, for which the headers have no name here.
constexpr GUID LiveSetting{
    0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr LONG Polite = 1;

} // namespace

void AnnotateAccessibleName(HWND window, const std::wstring& name) {
    Annotate(window, PROPID_ACC_NAME, name);
}

void AnnotateAccessKey(HWND window, const std::wstring& key) {
    Annotate(window, PROPID_ACC_KEYBOARDSHORTCUT, key);
}

void AnnotateLiveRegion(HWND window) {
    VARIANT setting{};
    setting.vt = VT_I4;
    setting.lVal = Polite;
    if (IAccPropServices* const service = Service())
        service->SetHwndProp(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, LiveSetting,
                             setting);
}

LRESULT LresultOf(IAccessible* object, WPARAM wParam) {
    static auto* const lresult =
        FunctionOf<decltype(LresultFromObject)>(Oleacc(), "LresultFromObject");
    return lresult ? lresult(IID_IAccessible, wParam, object) : 0;
}

HRESULT AccessibleWindow(HWND window, IDispatch** object) {
    static auto* const fromWindow =
        FunctionOf<decltype(AccessibleObjectFromWindow)>(Oleacc(), "AccessibleObjectFromWindow");
    *object = nullptr;
    return fromWindow ? fromWindow(window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                   reinterpret_cast<void**>(object))
                      : E_NOTIMPL;
}

} // namespace tamblin
