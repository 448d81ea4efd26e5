#include <grafel/foundation/CmdOStream.h>

#include <grafel/foundation/Units.h>

namespace Grafel {

void CmdOStream::beginItem() {
    if (separator_) {
        separator_ = false;
        run_ << ",\r\n";
    }
    ++depth_;
    for (int i = 0; i < depth_; ++i) run_ << "  ";
}

void CmdOStream::putSize(double mm) {
    *this << mm2units(units_, mm);
}

} // namespace Grafel
