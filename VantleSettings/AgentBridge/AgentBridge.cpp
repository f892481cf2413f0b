#include "AgentBridge/AgentBridge.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/LoopbackPost.h"

using namespace Qt::StringLiterals;

namespace
{

const QUrl &baseURL()
{
    static const QUrl url(u"http://127.0.0.1:18484"_s, QUrl::StrictMode);
    return url;
}

} // namespace

void AgentBridge::fireAndForget(const QString &path)
{
    QUrl url = baseURL();
    url.setPath(path);
    Seam<LoopbackPost>::current().post(url);
}

void AgentBridge::finish(std::chrono::milliseconds limit)
{
    Seam<LoopbackPost>::current().finish(limit);
}
