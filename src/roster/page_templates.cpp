#include "roster/page_templates.h"

namespace MPageTemplates {

const std::string_view kHead = "<HTML>\r\n<BODY BGCOLOR=\"*BGCOLOR\" text=\"*TXTCOLOR\"> <FONT FACE=\"ARIAL\">\r\n";
const std::string_view kTail = "</FONT></BODY>\r\n</HTML>\r\n";
const std::string_view kSeparator = R"(<HR><BR>)";
const std::string_view kRosterTitle =
    R"(<H1>*NAME</H1><br><H3>*DESCR</H3><BR><BR><H3>Total Cost: *PTS</H3><BR><HR><BR>)";
const std::string_view kRosterTitleWithPicture =
    R"(<table border="0" cellspacing=3><tr><td valign="Top" width=400><H1>*NAME</H1></td>)"
    R"(<td valign="Middle" rowspan=2><img src="*PICTURE" alt="army logo"></td>)"
    R"(<tr><td valign="Top"><H3>*DESCR</H3></td>)"
    R"(</tr></table><BR><BR><H3>Total Cost: *PTS</H3><BR><HR><BR>)";
const std::string_view kListTitle = R"(<H1>*NAME</H1><br><H3>*DESCR</H3><br><HR><BR>)";
const std::string_view kListTitleWithPicture =
    R"(<table border="0" cellspacing=3><tr><td valign="Top" width=400><H1>*NAME</H1></td>)"
    R"(<td valign="Middle" rowspan=2><img src="*PICTURE" alt="army logo"></td>)"
    R"(<tr><td valign="Top"><H3>*DESCR</H3></td></tr></table><BR><HR><BR>)";
const std::string_view kUnitHeading =
    R"(<table border="0"><tr><td valign="Top" width="250"></td> )"
    R"(<td valign="Top" width="25"><b>MV</b></td> <td valign="Top" width="25"><b>SS</b></td>)"
    R"(  <td valign="Top" width="25"><b>FA</b></td> <td valign="Top" width="25"><b>PF</b></td>)"
    R"(  <td valign="Top" width="25"><b>DP</b></td><td valign="Top" width="40"><b>PTS</b></td>)"
    R"(<TD><B>EQUIPMENT</B></TD></tr></table>)";
const std::string_view kUnitRow =
    R"(<table border="0"><tr><td valign="Top" width="250">*NAME</td> <td valign="Top" width="25">*MV</td>)"
    R"( <td valign="Top" width="25">*SS</td>  <td valign="Top" width="25">*FA</td> )"
    R"(<td valign="Top" width="25">*PF</td><td valign="Top" width="25">*DP</td>)"
    R"(<td valign="Top" width="40">*PTS</td><td>*EQ</td></tr></table>)";
const std::string_view kSquadHeading =
    R"(<table border="0"><tr><td valign="Top" width="250">*NAME</td> )"
    R"(<td valign="Top" width="25"><b>MV</b></td> <td valign="Top" width="25"><b>SS</b></td>)"
    R"(  <td valign="Top" width="25"><b>FA</b></td> <td valign="Top" width="25"><b>PF</b></td>)"
    R"(  <td valign="Top" width="25"><b>DP</b></td>)"
    R"(<td valign="Top" width="150"><b>PTS (TOT: *PTS)</b></td></tr></table>)";
const std::string_view kSectionInfantry =
    R"(<table border="0"><tr><td valign="Top" width="250"><FONT COLOR="#00FF00"><b>INFANTRY</b></FONT></td>)"
    R"( <td></td> <td></td> <td></td><td></td><td></td></tr></table>)";
const std::string_view kSectionVehicles =
    R"(<table border="0"><tr><td valign="Top" width="250"><FONT COLOR="#00FF00"><b>VEHICLES</b></FONT></td>)"
    R"( <td></td> <td></td> <td></td><td></td><td></td></tr></table>)";
const std::string_view kSectionAutonomousRobots =
    R"(<table border="0"><tr><td valign="Top" width="250"><FONT COLOR="#00FF00"><b>ROBOTS - AUTONOMOUS</b></FONT></td>)"
    R"( <td></td> <td></td> <td></td><td></td><td></td></tr></table>)";
const std::string_view kSectionSlaveRobots =
    R"(<table border="0"><tr><td valign="Top" width="250"><FONT COLOR="#00FF00"><b>ROBOTS - SLAVE</b></FONT></td>)"
    R"( <td></td> <td></td> <td></td><td></td><td></td></tr></table>)";
const std::string_view kSectionSquads =
    R"(<table border="0"><tr><td valign="Top" width="250"><FONT COLOR="#00FF00"><b>SQUADS</b></FONT></td>)"
    R"( <td></td> <td></td> <td></td><td></td><td></td></tr></table>)";
const std::string_view kWeaponHeading =
    R"(<table border="0"><tr><td valign="Top" width="200"><b>WEAPON</b></td> )"
    R"(<td valign="Top" width="50"><b>PTS</b></td> <td valign="Top" width="65"><b>Class</b></td> )"
    R"(<td valign="Top" width="25"><b>Pen</b></td><td valign="Top" width="150"><b>Properties</b></td>)"
    R"(<td valign="Top"><b>Description</b></td></tr></table>)";
const std::string_view kWeaponRow = R"(<table border="0"><tr><td valign="Top" width="200">*NAME</td> )"
                                    R"(<td valign="Top" width="50">*PTS</td> <td valign="Top" width="65">*CLASS</td> )"
                                    R"(<td valign="Top" width="25">*PEN</td><td valign="Top" width="150">*PROPS</td>)"
                                    R"(<td valign="Top">*DESCR</td></tr></table>)";
const std::string_view kAccessoryHeading =
    R"(<table border="0"><tr><td valign="Top" width="200"><b>ACCESSORY</b></td> )"
    R"(<td valign="Top" width="50"><b>PTS</b></td> <td valign="Top" width="65"><b>Class</b></td> )"
    R"(<td valign="Top" width="150"><b>Properties</b></td><td valign="Top"><b>Description</b></td>)"
    R"(</tr></table>)";
const std::string_view kAccessoryRow =
    R"(<table border="0"><tr><td valign="Top" width="200">*NAME</td> )"
    R"(<td valign="Top" width="50">*PTS</td> <td valign="Top" width="65">*CLASS</td> )"
    R"(<td valign="Top" width="150">*PROPS</td><td valign="Top">*DESCR</td></tr></table>)";

namespace {

struct SFormatTag {
    TextFormat flag;
    std::string_view open;
    std::string_view close;
};

constexpr SFormatTag kFormatTags[] = {{Bold, "<b>", "</b>"}, {Italic, "<i>", "</i>"}, {Underlined, "<u>", "</u>"}};

}  // namespace

std::string FormatText(std::string_view text, std::uint8_t flags, std::string_view tag) {
    std::string formatted(text);
    for (const SFormatTag* format = std::end(kFormatTags); format != std::begin(kFormatTags);) {
        --format;
        if ((flags & format->flag) != 0) formatted.insert(0, format->open).append(format->close);
    }
    if (tag.empty()) return formatted;
    const std::string name(tag);
    return "<" + name + ">" + formatted + "</" + name + ">";
}

CFilledTemplate& CFilledTemplate::Replace(std::string_view placeholder, std::string_view value) {
    for (std::size_t at = text_.find(placeholder); at != std::string::npos;
         at = text_.find(placeholder, at + value.size())) {
        text_.replace(at, placeholder.size(), value);
    }
    return *this;
}

CFilledTemplate& CFilledTemplate::ReplaceFormatted(std::string_view placeholder, std::string_view value,
                                                   std::uint8_t flags, std::string_view tag) {
    return Replace(placeholder, FormatText(value, flags, tag));
}

}  // namespace MPageTemplates
