#include "app/exceptionreport.h"

#include "app/application.h"
#include "graph/runcontrol.h"
#include "settings/product.h"

#include <new>

ExceptionReport ExceptionReport::ofCurrent()
{
    const QString product = QString::fromLatin1(Product::name);
    const QString support = QString::fromLatin1(Product::supportAddress);
    try {
        throw;
    } catch (const MaxMemoryException &) {
        return {QStringLiteral("Maximum memory exceeded"),
            QStringLiteral("%1 has exceeded the memory allocation set in 'Preferences' and will close.").arg(product),
            MemoryExceeded};
    } catch (const std::bad_alloc &) {
        Application::outOfMemoryHandler(); // which ends the process
    } catch (const std::exception &exception) {
        return {QStringLiteral("exception: ") + QString::fromLocal8Bit(exception.what()),
            QStringLiteral("%1 has to close due to an exception. Please contact support at %2.").arg(product, support),
            StandardException};
    } catch (...) {
        return {QStringLiteral("exception"),
            QStringLiteral("%1 has to close. Please contact support at %2.").arg(product, support), UnknownException};
    }
}
