#include "Benchmarks/Qt/QtMenu.h"

namespace Benchmarks {

QtMenu::QtMenu(QAbstractItemModel& model) {
    setUniformItemSizes(true);
    setModel(&model);
    resize(240, 308);
    doItemsLayout();
}

} // namespace Benchmarks
