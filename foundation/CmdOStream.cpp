#include <grafel/foundation/CmdOStream.h>

#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/Units.h>

namespace Grafel {

void CmdOStream::beginItem() {
    if (separator_) {
        separator_ = false;
        out_ << ",\r\n";
    }
    ++depth_;
    for (int i = 0; i < depth_; ++i) out_ << "  ";
}

void CmdOStream::putSize(double mm) {
    putNumber(out_, mm2units(units_, mm));
}

} // namespace Grafel
