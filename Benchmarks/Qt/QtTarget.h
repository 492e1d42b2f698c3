#pragma once

#include <QObject>

namespace Benchmarks {

class QtTarget : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE void hide();
    Q_INVOKABLE void seek(double position);
    Q_INVOKABLE void follow(Benchmarks::QtTarget* other);

private:
    qint64 count_ = 0;
    double position_ = 0.0;
};

} // namespace Benchmarks
