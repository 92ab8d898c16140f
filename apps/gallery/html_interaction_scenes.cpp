// SPDX-License-Identifier: MIT
// The HTML view as a person uses it: both bars, a link under the mouse, and the designer's
// Caption page showing a colour label's caption.
#include <corvane/host/picture_box.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/caption_page.h>
#include <corvane/html/vex_html.h>
#include <corvane/platform/api.h>
#include <corvane/widgets/vex_color_label.h>

#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel

std::string linkPage() {
  std::string page =
      "<H2>Links and jumps</H2><P>Hover <A HREF=\"http://example.org\" "
      "TITLE=\"an outside page\">this link</A> or jump to the <A HREF=\"#end\">end of the page</A>; "
      "the page scrolls with the wheel, the keys and the hand.</P>"
      "<TABLE BORDER=1 WIDTH=520><TR><TD>a table wider than the view, so that the horizontal bar shows"
      "</TD></TR></TABLE>";
  for (int n = 1; n <= 24; ++n)
    page +=
        "<P>Paragraph " + std::to_string(n) + " with a <A HREF=\"p" + std::to_string(n) + "\">link</A>.</P>";
  return page + "<P><A NAME=\"end\">The end.</A></P>";
}
}  // namespace

std::vector<Scene> htmlInteractionScenes();
namespace {
SceneRegistrar registerHtmlInteraction("html_interaction", htmlInteractionScenes);
}

std::vector<Scene> htmlInteractionScenes() {
  return {
      {"html_hovered_link", "a page with both bars, the hand over a link that shows its hover colour",
       [] {
         FormRef f = makeSceneForm("GalleryHtmlHover", 360 * kTwips, 240 * kTwips, 8, 0xFFFFFF);
         auto view = std::dynamic_pointer_cast<VexHTML>(
             f->add("VexHTML", "htmPage", nullptr, 0, 0, 360 * kTwips, 240 * kTwips));
         view->setDefaultFontName("Arial");
         view->setBackColor(0xFFFFFF);
         view->setEnableAnchors(true);
         view->setPageMover(true);
         view->setEnableScroll(3);
         view->setText(linkPage());
         const auto& doc = view->document();
         if (!doc.mAnchors.empty()) {
           const html::HtmlChunk& a = doc.chunk(doc.mAnchors.front());
           POINTAPI p{(a.Left + a.Right) / 2, (a.Top + a.Bottom) / 2};
           user().ClientToScreen(view->picViewPort()->surface().hWnd(), p);
           if (auto* d = dynamic_cast<Desktop*>(&platform())) d->mouseMove(p.x, p.y);
         }
         return f;
       }},
      {"html_caption_page", "the designer's Caption page, showing the caption of a colour label",
       [] {
         FormRef f = makeSceneForm("GalleryCaptionPage", 5850, 3465, 8);
         auto label =
             std::dynamic_pointer_cast<VexColorLabel>(f->add("VexColorLabel", "lblTitle", nullptr, 0, 0));
         label->setCaption(
             "<b>Total</b> <c&HC0>overdue</c><br>since <i>Monday</i>\r\n"
             "second line of the caption");
         user().ShowWindow(label->hWnd(), SW_HIDE);  // the page covers the form
         CaptionPage page;
         page.setSelectedControls({label->extenderRef()});
         page.draw(f->surface());
         return f;
       }},
  };
}

}  // namespace corvane::gallery
