// SPDX-License-Identifier: MIT
// Pages shared by the HTML view's benchmarks.
#pragma once

#include <string>

namespace {

// A page of about 30 KB: headings, paragraphs with bold and italic words and links, lists,
// fonts with colour and size, entities, and tables with colspan, some rows and cells left open.
std::string thirtyKilobytePage() {
  std::string page = "<HTML><HEAD><TITLE>Jahresbericht</TITLE></HEAD><BODY BGCOLOR=#FFFFF0 TEXT=navy>\n";
  for (int section = 1; page.size() < 30000; ++section) {
    std::string n = std::to_string(section);
    page += "<H2>Abschnitt " + n + "</H2>\n";
    page += "<P ALIGN=justify>Im Abschnitt " + n +
            " berichten wir &uuml;ber die <B>Ergebnisse</B> des Jahres, die <I>Planung</I> f&uuml;r das "
            "n&auml;chste Jahr und die <A HREF=\"seite" +
            n +
            ".html\" TITLE=\"mehr\">Einzelheiten</A> "
            "der Umsetzung.\n";
    page +=
        "<P>Weitere Angaben finden Sie <FONT FACE=\"Verdana, Arial\" SIZE=+1 COLOR=#C00000>hervorgehoben"
        "</FONT> und <FONT SIZE=2 COLOR=green>klein gedruckt</FONT> &copy; 2008.</P>\n";
    page += "<UL><LI>Punkt eins<LI>Punkt zwei mit <A HREF=#a" + n + ">Anker</A><LI>Punkt drei</UL>\n";
    page += "<TABLE BORDER=1 CELLPADDING=3 WIDTH=80%><TR><TH COLSPAN=2 BGCOLOR=silver>Tabelle " + n +
            "</TH></TR>\n<TR><TD WIDTH=40%>Umsatz<TD ALIGN=right>1.200 &#128;</TR>\n"
            "<TR><TD VALIGN=bottom>Kosten</TD><TD ALIGN=right>800&nbsp;&#128;</TD></TR>\n"
            "<TR><TD COLSPAN=2><SMALL>Angaben ohne Gew&auml;hr</SMALL></TD></TR></TABLE>\n";
  }
  return page + "</BODY></HTML>";
}

}  // namespace
