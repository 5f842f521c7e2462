// Lets ThreadSanitizer see the one operation on the pointer of a QString or a QByteArray that Qt does not do inline:
// assignment by copy. As QMutexInterposer.cpp does, the functions take the place of Qt's, and do the same; but they are
// built with the checker.

#include <QByteArray>
#include <QString>

namespace
{
template<class Data>
void share(Data *&held, Data *other)
{
    other->ref.ref();
    if (!held->ref.deref()) {
        Data::deallocate(held);
    }
    held = other;
}
}

QString &QString::operator=(const QString &other) noexcept
{
    share(d, other.d);
    return *this;
}

QByteArray &QByteArray::operator=(const QByteArray &other) noexcept
{
    share(d, other.d);
    return *this;
}
