#!/usr/bin/env python3
"""Writes the bundled sample: "Tide Clock", a small WinHelp 4 help project as
HTML Help Workshop converts it (generated topic names, untitled popup topics,
contents, index and images), together with the .hpj it came from and its map
header. Run it to regenerate samples/tideclock/ byte for byte."""
import hashlib
import os
import shutil
import struct

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "tideclock")
B36 = "0123456789abcdefghijklmnopqrstuvwxyz"


def gen_name(prefix, context):
    h = int(hashlib.md5(context.encode()).hexdigest(), 16)
    s = ""
    for _ in range(4):
        s += B36[h % 36]
        h //= 36
    return prefix + s + ".htm"


# (context, title, source prefix, paragraphs); titles of popups are "(Untitled)".
# Paragraph markup: [[ctx|text]] is a link, {{img}} an image.
TOPICS = [
    ("main_index", "Tide Clock Help", "tide", [
        "<B>Tide Clock Help Contents</B>",
        "[[intro|Introducing Tide Clock]]",
        "[[first_steps|Your first tide table]]",
        "[[stations|Choosing a tide station]]",
        "[[graph|Reading the tide graph]]",
        "[[alarm|Setting a tide alarm]]",
        "[[menu_file|Commands]]",
        "[[faq|Frequently asked questions]]",
    ]),
    ("intro", "Introducing Tide Clock", "tide", [
        "Tide Clock predicts the rise and fall of the sea at more than three thousand "
        "harbours. It shows the next [[gl_high_water|high water]] and "
        "[[gl_low_water|low water]] at a glance.",
        "{{tideclock.gif}}",
        "See also [[harmonics|How tides are predicted]].",
    ]),
    ("install", "Installing Tide Clock", "tide", [
        "Run SETUP.EXE from the distribution disk and follow the instructions.",
        "Tide Clock needs 2 MB of free disk space for the station database.",
    ]),
    ("first_steps", "Your First Tide Table", "tide", [
        "Choose <B>File</B>, <B>Open Station</B>, pick the harbour nearest to you and "
        "click OK. The [[table|tide table]] for today appears.",
        "Heights are measured from [[gl_datum|chart datum]].",
    ]),
    ("stations", "Choosing a Tide Station", "tide", [
        "Each station has its own [[gl_harmonic|harmonic constants]]. Pick the "
        "station closest to where you will be.",
        "[[station_search|Searching for a station]]",
    ]),
    ("station_search", "Searching for a Station", "tide", [
        "Type part of the name in the search box. Tide Clock lists every station whose "
        "name contains the text.",
        "<A NAME=\"search_tips\"></A><B>Tips</B>",
        "Search by country code, for example <I>FR</I> or <I>UK</I>.",
    ]),
    ("harmonics", "How Tides Are Predicted", "tide", [
        "A tide is the sum of many [[gl_harmonic|harmonic constituents]], each driven by "
        "the moon or the sun.",
        "Near new and full moon the constituents add up to a [[gl_spring_tide|spring tide]]; "
        "at the quarters they partly cancel into a [[gl_neap_tide|neap tide]].",
        "{{moon.gif}}",
    ]),
    ("datum", "Chart Datum and Heights", "tide", [
        "Tide heights are given above [[gl_datum|chart datum]], the level below which the "
        "sea seldom falls.",
    ]),
    ("units", "Changing Units", "tide", [
        "Choose <B>View</B>, <B>Options</B> and pick metres or feet.",
    ]),
    ("timezone", "Time Zones and Daylight Saving", "tide", [
        "Times are shown in the station's local time. Daylight saving is applied "
        "automatically &amp; can be turned off in the options.",
    ]),
    ("graph", "Reading the Tide Graph", "tide", [
        "The graph shows the height of the tide over the day. The red line marks the "
        "present time.",
        "{{graph.gif}}",
        "[[graph_zoom|Zooming the graph]]",
        "[[station_search#search_tips|Search tips]]",
    ]),
    ("graph_zoom", "Zooming the Graph", "tide", [
        "Drag across the graph to zoom in; double-click to show the whole day again.",
    ]),
    ("table", "The Tide Table Window", "tide", [
        "The table lists each [[gl_high_water|high water]] and [[gl_low_water|low water]] "
        "with its time and height.",
    ]),
    ("print", "Printing Tide Tables", "tide", [
        "Choose [[hid_file_print|Print]] from the File menu. A month of tides fits on one page.",
    ]),
    ("export", "Exporting to a Spreadsheet", "tide", [
        "Choose <B>File</B>, <B>Export</B> to write the table as comma-separated text.",
    ]),
    ("alarm", "Setting a Tide Alarm", "tide", [
        "Tide Clock can sound an alarm a number of minutes before high water.",
        "<A NAME=\"alarm_sound\"></A><B>Choosing the sound</B>",
        "Any WAV file can be used.",
    ]),
    ("moon", "Moon Phases and Spring Tides", "tide", [
        "The moon's phase is drawn above the graph. [[gl_spring_tide|Spring tides]] follow "
        "new and full moon by a day or two.",
        "{{moon.gif}}",
    ]),
    ("currents", "Tidal Currents", "tide", [
        "Currents run strongest halfway between [[gl_high_water|high]] and "
        "[[gl_low_water|low water]].",
    ]),
    ("menu_file", "File Menu", "tide", [
        "[[hid_file_open|Open Station]]",
        "[[hid_file_save|Save]]",
        "[[hid_file_print|Print]]",
        "[[hid_app_exit|Exit]]",
    ]),
    ("menu_view", "View Menu", "tide", [
        "[[hid_view_graph|Graph]]",
        "[[hid_view_table|Table]]",
    ]),
    ("menu_help", "Help Menu", "tide", [
        "[[main_index|Contents]]",
        "[[hid_app_about|About Tide Clock]]",
    ]),
    ("hid_file_open", "Open Station command", "tide", [
        "Opens a station file. See [[stations|Choosing a tide station]].",
    ]),
    ("hid_file_save", "Save command", "tide", [
        "Saves the current tide table.",
    ]),
    ("hid_file_print", "Print command", "tide", [
        "Prints the tide table. See [[print|Printing tide tables]].",
    ]),
    ("hid_app_exit", "Exit command", "tide", [
        "Ends Tide Clock.",
        "{{appexit.gif}}",
    ]),
    ("hid_view_graph", "Graph command", "tide", [
        "Shows the [[graph|tide graph]].",
    ]),
    ("hid_view_table", "Table command", "tide", [
        "Shows the [[table|tide table]].",
    ]),
    ("hid_app_about", "About Tide Clock", "tide", [
        "Shows the version number and the copyright.",
    ]),
    ("faq", "Frequently Asked Questions", "tide", [
        "<B>Why does my harbour differ from the newspaper?</B>",
        "Newspapers often round to the nearest quarter hour.",
        "<B>What is a [[gl_neap_tide|neap tide]]?</B>",
    ]),
    ("marees", "Mar\xe9es et oc\xe9ans: notes for French users", "tide", [
        "Tide Clock uses the French names of the stations of the SHOM (Service "
        "hydrographique et oc\xe9anographique de la Marine).",
    ]),
    ("spare_notes", "(Untitled)", "tide", [
        "These notes were kept for the next edition and are not linked from anywhere.",
    ]),
    (None, "Credits", "tide", [
        "<B>Credits</B>",
        "Tide predictions by the Tide Clock team.",
    ]),
    # Popups from the glossary: called by links within the help.
    ("gl_high_water", "(Untitled)", "glos", [
        "<B>high water</B>",
        "The highest level reached by the sea in one tide.",
    ]),
    ("gl_low_water", "(Untitled)", "glos", [
        "<B>low water</B>",
        "The lowest level reached by the sea in one tide.",
    ]),
    ("gl_spring_tide", "(Untitled)", "glos", [
        "<B>spring tide</B>",
        "A tide with a large range, near new and full moon:<UL>\n<LI>high water is higher"
        "\n<LI>low water is lower\n</UL>",
    ]),
    ("gl_neap_tide", "(Untitled)", "glos", [
        "<B>neap tide</B>",
        "A tide with a small range, near the moon's first and last quarter.",
    ]),
    ("gl_datum", "(Untitled)", "glos", [
        "<B>chart datum</B>",
        "The level to which the depths on a chart and the heights of tides refer. "
        "It is usually close to the lowest astronomical tide.",
    ]),
    ("gl_harmonic", "(Untitled)", "glos", [
        "<A NAME=\"gl_constituent\"></A><B>harmonic constituent</B>",
        "One of the regular waves whose sum is the tide, such as M2 (the principal "
        "lunar wave, period 12.42 hours).",
    ]),
    # Popups called by the application through map IDs ("What's This?" help).
    ("idh_station_list", "(Untitled)", "popu", [
        "Lists the stations that match the search text. Double-click a station to open it.",
    ]),
    ("idh_units_metric", "(Untitled)", "popu", [
        "Shows heights in metres instead of feet.",
    ]),
    ("idh_alarm_minutes", "(Untitled)", "popu", [
        "The number of minutes before high water at which the alarm sounds.",
    ]),
    ("idh_timezone_auto", "(Untitled)", "popu", [
        "Applies daylight saving time automatically, using the rules of the "
        "station's country.",
    ]),
]

NAMES = {}
for ctx, title, prefix, _ in TOPICS:
    NAMES[ctx or "credits"] = gen_name(prefix, ctx or "credits")
assert len(set(NAMES.values())) == len(NAMES)

# The map header of the application: command IDs, dialog control IDs and a few
# entries whose topics are gone or that have no value.
MAP_HEADER = [
    ("HID_FILE_OPEN", "0x18100"), ("HID_FILE_SAVE", "0x18103"), ("HID_FILE_PRINT", "0x18107"),
    ("HID_APP_EXIT", "0x1E141"), ("HID_VIEW_GRAPH", "0x18200"), ("HID_VIEW_TABLE", "0x18201"),
    ("HID_APP_ABOUT", "0x1E140"), ("HID_HELP_INDEX", "0x1E142"), ("HID_CONTEXT_HELP", "0x1E143"),
    ("IDH_STATION_DIALOG", "2000"), ("IDH_STATION_LIST", "1001"), ("IDH_UNITS_METRIC", "1002"),
    ("IDH_ALARM_MINUTES", "1003"), ("IDH_TIMEZONE_AUTO", "1004"), ("GL_CONSTITUENT", "1100"),
    ("IDH_OLD_DIALOG", "1200"), ("IDH_RESERVED", "0"),
]


# The first lines of a contents file as HTML Help Workshop writes it.
CONTENTS_HEAD = [
    '<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">',
    "<HTML>",
    "<HEAD>",
    '<meta name="GENERATOR" content="Microsoft&reg; HTML Help Workshop 4.1">',
    "<!-- Sitemap 1.0 -->",
    "</HEAD><BODY>",
    '<OBJECT type="text/site properties">',
    '\t<param name="ImageType" value="Folder">',
    "</OBJECT>",
    "<UL>",
]


def crlf(lines):
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


def render(text):
    out = ""
    while "[[" in text:
        a, rest = text.split("[[", 1)
        target, rest = rest.split("]]", 1)
        ctx, label = target.split("|", 1)
        frag = ""
        if "#" in ctx:
            ctx, frag = ctx.split("#", 1)
            frag = "#" + frag
        out += a + '<A HREF="%s%s">%s</A>' % (NAMES[ctx], frag, label)
        text = rest
    while "{{" in text:
        a, rest = text.split("{{", 1)
        img, rest = rest.split("}}", 1)
        text = a + '<IMG SRC="../images/%s" ALT="" BORDER=0>' % img + rest
    return out + text


def topic_file(ctx, title, paragraphs):
    lines = [
        '<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 3.2 Final//EN">',
        "<HTML>",
        "<HEAD>",
        '<META HTTP-EQUIV="Content-Type" Content="text/html; charset=Windows-1252">',
        "<TITLE>%s</TITLE>" % title,
        "</HEAD>",
        "",
        '<BODY BGCOLOR="#FFFFFF" TEXT="#000000">',
        "",
    ]
    first = render(paragraphs[0])
    if ctx is not None and not first.startswith("<A NAME"):
        first = '<A NAME="%s"></A>' % ctx + first
    elif ctx is not None:
        first = '<A NAME="%s"></A>' % ctx + first
    if ctx is None and not paragraphs[0].startswith("<B>"):
        first = "<B>%s</B>" % title
    lines += ["<P>%s</P>" % first, ""]
    for p in paragraphs[1:]:
        lines += ["<P>%s</P>" % render(p), ""]
    lines += ["</BODY>", "</HTML>"]
    return crlf(lines)


def gif(width, height, color):
    """A one-colour GIF image."""
    header = b"GIF89a" + struct.pack("<HHBBB", width, height, 0x80, 0, 0)
    palette = bytes(color) + b"\x00\x00\x00"
    image = b"\x2c" + struct.pack("<HHHHB", 0, 0, width, height, 0)
    # LZW data for an image of colour 0: a clear code before every two pixels
    # keeps the code size at 3 bits.
    pixels = width * height
    codes = [c for _ in range(pixels // 2) for c in (4, 0, 0)] + [5]
    bits, nbits, data = 0, 0, bytearray()
    for c in codes:
        bits |= c << nbits
        nbits += 3
        while nbits >= 8:
            data.append(bits & 0xFF)
            bits >>= 8
            nbits -= 8
    if nbits:
        data.append(bits & 0xFF)
    blocks = b""
    for i in range(0, len(data), 255):
        chunk = bytes(data[i:i + 255])
        blocks += bytes([len(chunk)]) + chunk
    return header + palette + image + b"\x02" + blocks + b"\x00\x3b"


def main():
    if os.path.isdir(OUT):
        shutil.rmtree(OUT)
    os.makedirs(os.path.join(OUT, "html"))
    os.makedirs(os.path.join(OUT, "images"))
    for ctx, title, _, paragraphs in TOPICS:
        with open(os.path.join(OUT, "html", NAMES[ctx or "credits"]), "wb") as f:
            f.write(topic_file(ctx, title, paragraphs))
    for name, color in [("tideclock.gif", (0, 64, 160)), ("moon.gif", (230, 230, 200)),
                        ("graph.gif", (200, 0, 0)), ("appexit.gif", (90, 90, 90))]:
        with open(os.path.join(OUT, "images", name), "wb") as f:
            f.write(gif(8, 8, color))

    files = ["html\\" + NAMES[ctx or "credits"] for ctx, _, _, _ in TOPICS]
    aliases = ["%s = html\\%s" % (ctx, NAMES[ctx]) for ctx, _, _, _ in TOPICS if ctx]
    hhp = [
        "[OPTIONS]",
        "Compatibility=1.1 or later",
        "Compiled file=TideClock.chm",
        "Contents file=Table of Contents.hhc",
        "Default topic=html\\" + NAMES["main_index"],
        "Display compile progress=No",
        "Index file=TideClock.hhk",
        "Language=0x409 English (United States)",
        "Title=Tide Clock Help",
        "",
        "",
        "[FILES]",
    ] + files + ["", "[ALIAS]"] + aliases + ["", "[MAP]", "#include TideClock.hh", "", "[INFOTYPES]", ""]
    with open(os.path.join(OUT, "TideClock.hhp"), "wb") as f:
        f.write(crlf(hhp))

    hpj = [
        "[OPTIONS]",
        "LCID=0x409 0x0 0x0 ;English (U.S.)",
        "CONTENTS=main_index",
        "TITLE=Tide Clock Help",
        "COMPRESS=true",
        "HLP=TideClock.HLP",
        "ERRORLOG=TideClock.LOG",
        "",
        "[FILES]",
        "tideclk.rtf",
        "glossary.rtf",
        "popups.rtf",
        "",
        "[ALIAS]",
        "HID_HELP_INDEX = main_index",
        "HID_CONTEXT_HELP = main_index ; F1 on the main window",
        "IDH_STATION_DIALOG = stations",
        "IDH_GONE = old_topic",
        "",
        "[MAP]",
        "#include <TideClock.hh>",
        "main_index 1",
        "intro=2",
        "#define faq 3",
        "#define marees 4 ; French notes",
        "",
        "[WINDOWS]",
        'main="Tide Clock Help",,27904,(r14876671),(r12632256),f3',
        "",
    ]
    with open(os.path.join(OUT, "TideClock.hpj"), "wb") as f:
        f.write(crlf(hpj))
    header = ["// Help map of Tide Clock (made by MAKEHELP.BAT)", ""]
    header += ["#define %-24s %s" % (n, v) for n, v in MAP_HEADER]
    with open(os.path.join(OUT, "TideClock.hh"), "wb") as f:
        f.write(crlf(header))

    hhc = list(CONTENTS_HEAD)
    book = [("Getting started", ["intro", "install", "first_steps"]),
            ("Tide stations", ["stations", "station_search", "harmonics", "datum"]),
            ("Using Tide Clock", ["graph", "graph_zoom", "table", "units", "timezone", "print",
                                  "export", "alarm", "moon", "currents"]),
            ("Commands", ["menu_file", "menu_view", "menu_help", "hid_file_open", "hid_file_save",
                          "hid_file_print", "hid_app_exit", "hid_view_graph", "hid_view_table",
                          "hid_app_about"]),
            ("Reference", ["faq", "marees", "credits"])]
    titles = {ctx or "credits": t for ctx, t, _, _ in TOPICS}
    for name, topics in book:
        hhc += ['\t<LI> <OBJECT type="text/sitemap">', '\t\t<param name="Name" value="%s">' % name,
                "\t\t</OBJECT>", "\t<UL>"]
        for ctx in topics:
            title = titles[ctx].replace("\xe9", "&eacute;")
            hhc += ['\t\t<LI> <OBJECT type="text/sitemap">',
                    '\t\t\t<param name="Name" value="%s">' % title,
                    '\t\t\t<param name="Local" value="html\\%s">' % NAMES[ctx], "\t\t\t</OBJECT>"]
        hhc += ["\t</UL>"]
    hhc += ["</UL>", "</BODY></HTML>"]
    with open(os.path.join(OUT, "Table of Contents.hhc"), "wb") as f:
        f.write(crlf(hhc))

    keywords = [("alarm", ["alarm"]), ("chart datum", ["datum"]), ("currents", ["currents"]),
                ("exporting", ["export"]), ("graph", ["graph", "graph_zoom"]),
                ("moon", ["moon", "harmonics"]), ("printing", ["print", "hid_file_print"]),
                ("stations", ["stations", "station_search"]), ("time zones", ["timezone"]),
                ("units", ["units"])]
    hhk = ["<HTML>", "<!-- Sitemap 1.0 -->", '<OBJECT type="text/site properties">', "</OBJECT>",
           "<UL>"]
    for keyword, topics in keywords:
        hhk += ['\t<LI> <OBJECT type="text/sitemap">', '\t\t<param name="Keyword" value="%s">' % keyword]
        for ctx in topics:
            hhk += ['\t\t<param name="Name" value="%s">' % titles[ctx],
                    '\t\t<param name="Local" value="html/%s">' % NAMES[ctx]]
        hhk += ["\t\t</OBJECT>"]
    hhk += ['\t<LI> <OBJECT type="text/sitemap">', '\t\t<param name="Keyword" value="search tips">',
            '\t\t<param name="Name" value="Searching for a Station">',
            '\t\t<param name="Local" value="html/%s#search_tips">' % NAMES["station_search"],
            "\t\t</OBJECT>", "</UL>", "</HTML>"]
    with open(os.path.join(OUT, "TideClock.hhk"), "wb") as f:
        f.write(crlf(hhk))


if __name__ == "__main__":
    main()
