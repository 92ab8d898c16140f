// SPDX-License-Identifier: MIT
#include <corvane/host/picture_box.h>

#include <corvane/runtime/guard.h>

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
        .get("ScaleLeft", [](PictureBox& p) { return p.surface().ScaleLeft(); })
        .get("ScaleTop", [](PictureBox& p) { return p.surface().ScaleTop(); })
        .get("ScaleWidth", [](PictureBox& p) { return p.surface().ScaleWidth(); })
        .get("ScaleHeight", [](PictureBox& p) { return p.surface().ScaleHeight(); })
        .get("Picture", [](PictureBox& p) { return p.surface().Picture(); })
        .method("ScaleX", [](PictureBox& p, Dispatch::Args& a) {
          return p.surface().ScaleX(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                    a.size() > 2 ? a[2].toInteger() : -1);
        })
        .method("ScaleY", [](PictureBox& p, Dispatch::Args& a) {
          return p.surface().ScaleY(a.at(0).toSingle(), a.size() > 1 ? a[1].toInteger() : 8,
                                    a.size() > 2 ? a[2].toInteger() : -1);
        })
        .method("PaintPicture", [](PictureBox& p, Dispatch::Args& a) {
          p.surface().PaintPicture(a.at(0).as<PictureRef>(), a.at(1).toSingle(), a.at(2).toSingle(),
                                   a.at(3).toSingle(), a.at(4).toSingle());
        });
    t.addSetter("BackColor", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<PictureBox&>(o).surface().setBackColor(v.toLong());
    });
    t.addSetter("Picture", [](Object& o, Dispatch::Args&, const Variant& v) {
      static_cast<PictureBox&>(o).surface().setPicture(v.as<PictureRef>());
    });
    return t;
  }();
  return &d;
}

}  // namespace corvane
