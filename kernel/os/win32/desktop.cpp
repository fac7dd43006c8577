// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexos/desktop.h"

#include "native.h"

#include <oleauto.h>

namespace kexos {

bool askOkCancel(const std::string& caption, const std::string& text)
{
    return MessageBoxW(nullptr, native::wide(text).c_str(), native::wide(caption).c_str(),
                       MB_OKCANCEL | MB_ICONEXCLAMATION | MB_TASKMODAL) == IDOK;
}

void* focusWindow() { return GetActiveWindow(); }

bool isBarred(void* window)
{
    return window != nullptr && !IsWindowEnabled(static_cast<HWND>(window));
}

namespace {

constexpr DISPID kSendData = 1;

/// An argument brought to the type that the method wants.
class Argument
{
public:
    Argument(VARIANTARG& given, VARTYPE type)
    {
        VariantInit(&value_);
        result_ = VariantChangeType(&value_, &given, 0, type);
    }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;
    ~Argument() { VariantClear(&value_); }

    HRESULT result() const { return result_; }
    int number() const { return value_.lVal; }
    std::string text() const
    {
        return native::utf8({value_.bstrVal, SysStringLen(value_.bstrVal)});
    }

private:
    VARIANT value_;
    HRESULT result_;
};

} // namespace

// The interface has no destructor, as nobody destroys an object through it.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Lives as long as its RunningObject, whatever others count: they are cut off before it goes.
class RunningObject::Dispatch final : public IDispatch
{
public:
    explicit Dispatch(DataReceiver& receiver) : receiver_(receiver) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) return E_POINTER;
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override
    {
        if (names == nullptr || ids == nullptr) return E_POINTER;
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        constexpr wchar_t kName[] = L"SendData";
        constexpr BOOL kIgnoreCase = TRUE;
        const bool known =
            count > 0 && CompareStringOrdinal(names[0], -1, kName, -1, kIgnoreCase) == CSTR_EQUAL;
        if (known) ids[0] = kSendData;
        // Names behind the first are those of parameters; ours have none.
        return known && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* given,
                                     VARIANT* result, EXCEPINFO*, UINT* wrong) override
    {
        if (id != kSendData || (kind & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
        constexpr UINT kCount = 3;
        if (given == nullptr || given->cArgs != kCount) return DISP_E_BADPARAMCOUNT;
        // The last parameter comes first.
        VARIANTARG* const last = given->rgvarg;
        const Argument name(last[2], VT_BSTR), code(last[1], VT_I4), text(last[0], VT_BSTR);
        const Argument* const arguments[kCount] = {&text, &code, &name};
        for (UINT i = 0; i < kCount; ++i) {
            if (arguments[i]->result() == S_OK) continue;
            if (wrong != nullptr) *wrong = i;
            return arguments[i]->result();
        }
        const int answer = receiver_.sendData(name.text(), code.number(), text.text());
        if (result != nullptr) {
            result->vt = VT_I4;
            result->lVal = answer;
        }
        return S_OK;
    }

private:
    DataReceiver& receiver_;
};

RunningObject::RunningObject(DataReceiver& receiver)
    : dispatch_(std::make_unique<Dispatch>(receiver))
{
}

RunningObject::~RunningObject() { leave(); }

bool RunningObject::enter(const std::string& classId)
{
    leave();
    CLSID id;
    return CLSIDFromString(native::wide(classId).c_str(), &id) == S_OK &&
           RegisterActiveObject(dispatch_.get(), id, ACTIVEOBJECT_STRONG, &cookie_) == S_OK;
}

void RunningObject::leave()
{
    if (cookie_ == 0) return;
    RevokeActiveObject(std::exchange(cookie_, 0), nullptr);
    CoDisconnectObject(dispatch_.get(), 0);
}

} // namespace kexos
