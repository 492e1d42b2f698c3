#include "Benchmarks/Qt/QtTarget.h"

namespace Benchmarks {

void QtTarget::hide() { ++count_; }

void QtTarget::seek(double position) { position_ += position; }

void QtTarget::follow(QtTarget* other) { count_ += other->count_; }

} // namespace Benchmarks
