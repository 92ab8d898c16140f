#include "host/picture_box.h"

#include "runtime/guard.h"

namespace corvane {

void PictureBox::ReadProperties(PropertyBag& bag) {
  guarded([&] { surface().setBackColor(bag.ReadProperty("BackColor", static_cast<int32_t>(0x8000000F)).toLong()); });
}

void PictureBox::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("BackColor", surface().BackColor(), static_cast<int32_t>(0x8000000F));
}

const Dispatch* PictureBox::dispatch() const {
  static const Dispatch d = [] {
    Dispatch t;
    DispatchBuilder<PictureBox>(t)
        .get("hWnd", [](PictureBox& p) { return p.surface().hWnd(); })
        .get("hDC", [](PictureBox& p) { return p.surface().hdc(); })
        .get("BackColor", [](PictureBox& p) { return p.surface().BackColor(); })
        .method("setBackColor", [](PictureBox& p, Dispatch::Args& a) { p.surface().setBackColor(a.at(0).toLong()); })
        .get("ScaleWidth", [](PictureBox& p) { return p.surface().ScaleWidth(); })
        .get("ScaleHeight", [](PictureBox& p) { return p.surface().ScaleHeight(); });
    t.addSetter("BackColor", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<PictureBox&>(o).surface().setBackColor(v.toLong());
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane
