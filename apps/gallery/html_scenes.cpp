// SPDX-License-Identifier: MIT
#include <corvane/frame/global.h>
#include <corvane/host/scroll_bar.h>
#include <corvane/html/vex_html.h>

#include <functional>
#include <memory>
#include <string>

#include "gallery.h"

namespace corvane::gallery {

namespace {
constexpr float kTwips = 15;  // the gallery's desktop runs at 15 twips per pixel
constexpr OLE_COLOR kWhite = 0xFFFFFF;

// A form with one HTML view filling it, showing the page.
FormRef makeHtmlForm(const std::string& name, int32_t width, int32_t height, const std::string& page,
                     bool withPictures = false, const std::function<void(VexHTML&)>& setUp = nullptr) {
  FormRef f = makeSceneForm(name, width * kTwips, height * kTwips, 8, kWhite);
  auto view = std::dynamic_pointer_cast<VexHTML>(
      f->add("VexHTML", "htmPage", nullptr, 0, 0, width * kTwips, height * kTwips));
  view->setDefaultFontName("Arial");
  if (withPictures)
    view->LoadImage.connect([](std::string& source, PictureRef& image) {
      if (source == "demo" || source == "tile") image = Global::LoadIconPicture("hover_demo");
    });
  view->setBackColor(kWhite);
  if (setUp) setUp(*view);
  view->setText(page);
  return f;
}
}  // namespace

std::vector<Scene> htmlScenes();
namespace {
SceneRegistrar registerHtml("html", htmlScenes);
}

std::vector<Scene> htmlScenes() {
  return {
      {"html_text", "headings, paragraphs, inline styles, fonts, a centred block and nested lists",
       [] {
         return makeHtmlForm(
             "GalleryHtmlText", 420, 360,
             "<H1>Heading one</H1><P>A paragraph with <B>bold</B>, <I>italic</I> and <U>underlined</U> "
             "words, "
             "long enough to wrap onto a second line at this width.</P>"
             "<H3>Heading three</H3><P><FONT FACE=\"Times New Roman\" SIZE=5 COLOR=#C00000>Red serif</FONT> "
             "and <BIG>big</BIG> text.</P><CENTER>centred line</CENTER>"
             "<UL><LI>first item<LI>second item<UL><LI>nested one<LI>nested two</UL><LI>third item</UL>"
             "<OL><LI>one<LI>two<LI>three</OL><HR><BLOCKQUOTE>A quoted block.</BLOCKQUOTE>");
       }},
      {"html_tables", "a bordered table with a spanning cell and cell padding, and a table nested in a cell",
       [] {
         return makeHtmlForm("GalleryHtmlTables", 420, 300,
                             "<P>Tables:</P><TABLE BORDER=1 CELLPADDING=4 "
                             "WIDTH=380><TR><TD>one</TD><TD>two</TD><TD>three</TD></TR>"
                             "<TR><TD COLSPAN=2 BGCOLOR=#FFFFC0>spans two columns</TD><TD>six</TD></TR>"
                             "<TR><TD>outer</TD><TD COLSPAN=2><TABLE BORDER=1 CELLPADDING=2><TR><TD>in "
                             "a</TD><TD>in b</TD></TR>"
                             "</TABLE></TD></TR></TABLE><P>After the table.</P>");
       }},
      {"html_images",
       "an image handed in through LoadImage, one that the host left empty, and a tiled background",
       [] {
         return makeHtmlForm("GalleryHtmlImages", 320, 200,
                             "<BODY BACKGROUND=\"tile\"><P>Picture: <IMG SRC=\"demo\"> and a missing one "
                             "<IMG SRC=\"none\" WIDTH=32 HEIGHT=24> after it.</P></BODY>",
                             true);
       }},
      {"html_gradient", "a gradient page from BackColor to BackColor2; a BODY BGCOLOR has no effect then",
       [] {
         return makeHtmlForm(
             "GalleryHtmlGradient", 320, 160,
             "<BODY BGCOLOR=#00FF00><H2>Gradient page</H2><P>Text over a gradient from white to "
             "light blue, at the default angle.</P></BODY>",
             false, [](VexHTML& v) {
               v.setBackColor2(0xFFC080);
               v.setGradient(true);
             });
       }},
      {"html_long_page", "a long page with both bars, scrolled half way down",
       [] {
         std::string page = "<H2>A long page</H2>";
         for (int n = 1; n <= 60; ++n)
           page += "<P>Paragraph " + std::to_string(n) + ": some running text to fill the line.</P>";
         FormRef f =
             makeHtmlForm("GalleryHtmlLong", 320, 240, page, false, [](VexHTML& v) { v.setEnableScroll(3); });
         auto view = std::dynamic_pointer_cast<VexHTML>(f->control("htmPage"));
         if (view && view->vscScroll())
           view->vscScroll()->setValue(static_cast<int16_t>(view->vscScroll()->Max() / 2));
         return f;
       }},
  };
}

}  // namespace corvane::gallery
