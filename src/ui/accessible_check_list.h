// What a screen reader is told of a list of ticked lines: each line is a check box.
#pragma once

#include <functional>
#include <string>

#include "ui/windows_headers.h"

// The order matters.
#include <objbase.h>
#include <oleauto.h>

#include <oleacc.h>

namespace tamblin {

// The interface has no virtual destructor: COM objects delete themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Counted as COM objects are, and may outlive its list.
class AccessibleCheckList : public IAccessible {
  public:
    // `toggleRow` changes a line's tick. The line's item data is its tick.
    AccessibleCheckList(HWND listBox, std::function<void(size_t row)> toggleRow);
    void SetName(const std::wstring& newName) { name = newName; }
    // The list goes: nothing can be asked of it any more.
    void Disconnect();

    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return E_NOTIMPL;
    }

    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* text) override;
    STDMETHODIMP get_accValue(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP get_accDescription(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT, BSTR*) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* child) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                             VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG x, LONG y, VARIANT* child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

  private:
    virtual ~AccessibleCheckList() = default;
    bool IsChild(const VARIANT& child) const; // a line, not the list itself
    bool IsValid(const VARIANT& child) const;
    LONG Count() const;
    LONG StateOf(WPARAM row) const;
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    LONG references = 1;
    HWND list;
    std::function<void(size_t row)> toggle;
    std::wstring name;
};

#pragma GCC diagnostic pop

} // namespace tamblin
