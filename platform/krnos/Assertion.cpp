// Violated invariants: to the host's handler, else to the log of the module that reports them.
#include "sys/krnos.h"

#include "HostCallback.h"

using namespace krnos;

namespace {

using Handler = void(const char* caption, const char* expression, const char* module, const char* file,
                     int line, void* context);

HostCallback<Handler>& assertHandler()
{
    static HostCallback<Handler> handler;
    return handler;
}

const char* orEmpty(const char* text) noexcept
{
    return text != nullptr ? text : "";
}

} // namespace

void kosAssertFail(const char* caption, const char* expression, const char* module, const char* file,
                   int line)
{
    caption = orEmpty(caption);
    expression = orEmpty(expression);
    module = orEmpty(module);
    file = orEmpty(file);
    if (!assertHandler().call(caption, expression, module, file, line)) {
        KrnLog(module, nullptr, true, true).log("%s: %s (%s, line %d)", caption, expression, file, line);
    }
}

void kosSetAssertHandler(void (*handler)(const char* caption, const char* expression, const char* module,
                                         const char* file, int line, void* context),
                         void* context)
{
    assertHandler().set(handler, context);
}
