#include "accounts/filters/FilterCategories.h"

#include <algorithm>
#include <iterator>

#include "accounts/filters/FilenameFilter.h"

namespace orv {

namespace {

// The agent and the server know the same lists: repeats and odd entries stay.

constexpr const char* documents[] = {
    "*.pmd",   "*.pdf",     "*.pmd",     "*.indd",        "*.indt",     "*.inds", "*.eps",
    "*.ai",    "*.cdt",     "*.qpw",     "*.shw",         "*.wcm",      "*.mbf",  "*.htm",
    "*.css",   "*.html",    "*.numbers", "*.pages",       "*.keynote",  "*.wps",  "*.numbers",
    "*.pages", "*.keynote", "*.key",     "*.nmbtemplate", "*.template", "*.kth",  "*.doc",
    "*.docx",  "*.dot",     "*.dotx",    "*.dotm",        "*.docm",     "*.xls",  "*.xlsx",
    "*.xlt",   "*.xltx",    "*.xlsb",    "*.xlr",         "*.xltm",     "*.xlsm", "*.xlam",
    "*.xla",   "*.csv",     "*.vsd",     "*.vsx",         "*.ppt",      "*.pot",  "*.pps",
    "*.ppa",   "*.sxi",     "*.odp",     "*.pptx",        "*.pptm",     "*.ppsx", "*.potx",
    "*.ppam",  "*.ppsm",    "*.potm",    "*.thmx",        "*.sxd",      " *.sxi", "*.sxw",
    "*.smf",   "*.sxc",     "*.sdc",     "*.qxd",         " *.qxt",     "*.rtf",  "*.txt",
    "*.qpw",   "*.wks",     "*.ods",     "*.wpd",         "*.odt",      "*.wps",  "*.pub",
    "*.xml",   nullptr};

constexpr const char* financial[] = {
    "*.acc", "*.q00", "*.q01", "*.q02", "*.q03", "*.q04", "*.q05", "*.q98", "*.qba", "*.qbb",
    "*.qbi", "*.qbw", "*.qbx", "*.qdb", "*.qdf", "*.qdt", "*.qel", "*.qph", "*.qif", "*.qmd",
    "*.qsd", "*.tax", "*.ta0", "*.ta1", "*.ta2", "*.ta3", "*.ta4", "*.ta5", "*.ta6", "*.ta7",
    "*.ta8", "*.ta9", "*.t03", "*.t04", "*.t05", "*.t06", "*.t07", "*.t08", "*.ofc", "*.mny",
    "*.tdb", "*.npc", "*.adb", "*.eml", "*.hcx", nullptr};

constexpr const char* images[] = {"*.qts",  "*.photolibrary*.aplibrary*.cmt",
                                  "*.cr2",  "*crw",
                                  "*.dng",  "*.fpx",
                                  "*.gif",  "*.img",
                                  "*.jgi",  "*.jfif",
                                  "*.jpg",  "*.jpeg",
                                  "*.jpg2", "*.jp2",
                                  "*.j62",  "*.psd",
                                  "*.bmp",  "*.tiff",
                                  "*.tif",  "*.svg",
                                  "*.k25",  "*.kdc",
                                  "*.kqp",  "*.nef",
                                  "*.mrw",  "*.pcd",
                                  "*.pef",  "*.png",
                                  "*.raf",  "*.raw",
                                  "*.tif",  "*.tiff",
                                  "*.xcf",  "*.ico",
                                  nullptr};

constexpr const char* archives[] = {"*.zip", "*.rar", "*.tar", "*.gz", nullptr};

constexpr const char* databases[] = {"*.mdb", "*.mde", "*.mda", "*.wdb", "*.odb", nullptr};

constexpr const char* music[] = {
    "*.aac",  "*.m4p", "*.band", "*.logic", "*.aifc", "*.aiff", "*.aif", "*.midi", "*.miz",
    "*.rmi",  "*.mp3", "*.mpa",  "*.m3u",   "*m3url", "*.mp1",  "*.mp2", "*.m4a",  "*.m4b",
    "*.mpga", "*.ogg", "*.ulw",  "*.rt",    "*.ra",   "*.smil", "*.wav", "*.wpl",  "*.wmx",
    "*.wma",  "*.wax", "*.wma",  "*.669",   "*.acp",  "*.amf",  "*.apl", "*.asx",  "*.atrac",
    "*.au",   "*.bwf", "*.cda",  "*.far",   "*.flac", "*.it",   "*.itz", "*.kar",  "*.mdz",
    "*.mid",  "*.miz", "*.mod",  "*.mtm",   "*.nsa",  "*.nst",  "*.ogg", "*.okt",  "*.pls",
    "*.rpl",  "*.rp",  "*.s3m",  "*.s3z",   "*.sd2",  "*.shn",  "*.snd", "*.ssm",  "*.stz",
    "*.voc",  "*.ult", "*.xpl",  nullptr};

constexpr const char* video[] = {"*.amc",       "*.asf",
                                 "*.swf",       "*.fla",
                                 "*.flv",       "*.mswmm",
                                 "*.wm",        "*.wmd",
                                 "*.wmv",       "*.wmz",
                                 "*.wvx",       "*.3g2",
                                 "*.3gp2",      "*.3gpp",
                                 "*.mov",       "*.m75",
                                 "*.m4v",       "*.qt",
                                 "*.qtl",       "*.rts",
                                 "*.rtsp",      "*.dv",
                                 "*.m1v",       "*.m2v",
                                 "*.m4e",       "*.mp2v",
                                 "*.mpv2",      "*.mp4",
                                 "*.mpa",       "*.mpe",
                                 "*.mpg",       "*.mpeg",
                                 "*.avi",       "*.mov",
                                 "*.wmv",       "*.ram",
                                 "*.rm",        "*.rv",
                                 "*.rmvb",      "*.imovielibrary",
                                 "*.rcproject", "*.theater.fcpbundle*.aam",
                                 "*.cdaa",      "*.fli",
                                 "*.flc",       "*.ivf",
                                 "*.mlv",       "*.nsv",
                                 "*.sdv",       "*.vfw",
                                 nullptr};

constexpr FilterCategory categories[] = {
    {"documents", FILTER_DOCUMENTS, documents},
    {"financial", FILTER_FINANCIAL, financial},
    {"images", FILTER_IMAGES, images},
    {"archives", FILTER_ARCHIVES, archives},
    {"databases", FILTER_DATABASES, databases},
    {"music", FILTER_MUSIC, music},
    {"video", FILTER_VIDEO, video},
};

}  // namespace

std::span<const FilterCategory> FilterCategories() {
    return categories;
}

bool IsFilterCategory(std::string_view name) {
    return std::ranges::find(categories, name, &FilterCategory::name) != std::end(categories);
}

}  // namespace orv
