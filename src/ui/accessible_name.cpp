#include "ui/accessible_name.h"

#include <objbase.h>

#include <initguid.h>
#include <oleacc.h>

namespace tamblin {
namespace {

IAccPropServices* CreateService() {
    void* service = nullptr;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     &service);
    return static_cast<IAccPropServices*>(service);
}

} // namespace

void AnnotateAccessibleName(HWND window, const std::wstring& name) {
    static IAccPropServices* const service = CreateService();
    if (service)
        service->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                PROPID_ACC_NAME, name.c_str());
}

} // namespace tamblin
