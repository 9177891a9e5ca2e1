// SPDX-License-Identifier: MIT
#include "automation/com.hpp"

#include "automation/texts.hpp"
#include "platform/error_trap.hpp"

#include <atomic>
#include <stdexcept>
#include <variant>

namespace vkr::automation {

namespace {

std::atomic<long> alive = 0;

void describe(REFIID interfaceId, const char* text) {
    ComPtr<ICreateErrorInfo> created;
    if (text == nullptr || *text == '\0' || FAILED(CreateErrorInfo(created.receive())))
        return;
    std::wstring wide = wideOf(text);
    created->SetGUID(interfaceId);
    created->SetDescription(wide.data());
    wchar_t source[] = L"VKR_DataEntry";
    created->SetSource(source);
    if (const auto info = queryFor<IErrorInfo>(created.get()))
        SetErrorInfo(0, info.get());
}

} // namespace

long liveObjects() {
    return alive;
}

Alive::Alive() {
    ++alive;
}
Alive::~Alive() {
    --alive;
}

void lockLibrary(bool lock) {
    alive += lock ? 1 : -1;
}

HRESULT tellFailure(REFIID interfaceId) noexcept {
    SetErrorInfo(0, nullptr);
    try {
        try {
            throw;
        } catch (const ComError& error) {
            describe(interfaceId, error.what());
            return error.code();
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (const std::bad_variant_access&) {
            return DISP_E_TYPEMISMATCH;
        } catch (const std::invalid_argument& error) {
            describe(interfaceId, error.what());
            return E_INVALIDARG;
        } catch (const std::exception& error) {
            assertNoProgramError();
            describe(interfaceId, error.what());
            return E_FAIL;
        } catch (...) {
            return E_UNEXPECTED;
        }
    } catch (...) { // no memory to tell it
        return E_OUTOFMEMORY;
    }
}

} // namespace vkr::automation
