#include "platform/BrowserEngine.h"

#include <windows.h>

#include <objbase.h>

namespace velmo::platform
{

bool HasBrowserEngine()
{
    // The control itself can be made without its engine, and then stays white without an error: ask
    // for the engine's document.
    CLSID document{};
    if (FAILED(CLSIDFromString(L"{25336920-03F9-11CF-8FD0-00AA00686F13}", &document)))
    {
        return false;
    }
    void* object = nullptr;
    if (FAILED(CoCreateInstance(document, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object)))
    {
        return false;
    }
    static_cast<IUnknown*>(object)->Release();
    return true;
}

} // namespace velmo::platform
