// SPDX-License-Identifier: LicenseRef-ORVALD
#include "automation/reactors.h"

namespace KEX {
namespace {

CKexApp15* theObject = nullptr;

int sendToObject(TextView name, int code, const CKexString& text)
{
    return theObject == nullptr ? CKexApp15::kUnknownName : theObject->sendData(name, code, text);
}

} // namespace

CKexApp15::CKexApp15() : running_(makeRunningObjects(sendToObject)) { theObject = this; }

CKexApp15::~CKexApp15()
{
    if (cookie_ != 0) running_->revokeActive(cookie_);
    theObject = nullptr;
}

CKexApp15* CKexApp15::instance() { return theObject; }

bool CKexApp15::set(const ACHAR* name, ReactorCallback callback)
{
    if (name == nullptr) return false;
    CKexString key(name);
    key.makeUpper();
    if (callback != nullptr) {
        if (callbacks_.isEmpty()) cookie_ = running_->registerActive();
        callbacks_.set(key, callback);
        return true;
    }
    callbacks_.remove(key);
    if (callbacks_.isEmpty() && cookie_ != 0) {
        running_->revokeActive(cookie_);
        cookie_ = 0;
    }
    return true;
}

int CKexApp15::sendData(TextView name, int code, const CKexString& text) const
{
    CKexString key(name);
    key.makeUpper();
    const ReactorCallback* callback = callbacks_.find(key);
    return callback == nullptr ? kUnknownName : (*callback)(code, text.c_str());
}

} // namespace KEX

extern "C" {

bool KexAddReactor(const ACHAR* name, KEX::ReactorCallback callback)
{
    KEX::CKexApp15* object = KEX::CKexApp15::instance();
    return object != nullptr && object->set(name, callback);
}

bool KexRemoveReactor(const ACHAR* name) { return KexAddReactor(name, nullptr); }
}
