#!/usr/bin/env python3
"""Writes a synthetic HTML Help project of N topic files as HTML Help Workshop
generates it from a WinHelp project, with the .hpj and map header it came from.

    make_project.py OUTDIR N [SEED [HUGE]]

The same N and SEED always give the same bytes. Layout of OUTDIR:
    Bench.hhp, Bench.hpj, Bench.hh (map header), Contents.hhc, Bench.hhk,
    html\\<prefix><4 base-36>.htm, images\\*.gif
About one topic in ten is an untitled popup; most popups are called by links,
some only by map IDs from the application. With HUGE, the first popup holds
HUGE links and the second HUGE images, so that cleaning popup text is measured
on bodies of many megabytes.
"""
import os
import random
import shutil
import sys

# The sample's writer supplies the file helpers both projects share.
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "samples"))
from make_tideclock import CONTENTS_HEAD, crlf, gif as gif_image  # noqa: E402

B36 = "0123456789abcdefghijklmnopqrstuvwxyz"
PREFIXES = ["guid", "refr", "cmds", "dlgs", "tutr", "appx"]
POPUP_PREFIX = "popu"
WORDS = ("tide station chart harbour water level moon current graph table alarm "
         "print export window dialog option setting value height time zone data "
         "file menu command button list field report record unit metre foot").split()
IMAGES = ["shot%d.gif" % i for i in range(8)]
DIRECT_MAP_IDS = 5      # IDs written straight into the .hpj [MAP] section
HPJ_ALIASES = 20        # lines in the .hpj [ALIAS] section


def sentence(rng, n):
    words = [rng.choice(WORDS) for _ in range(n)]
    return " ".join(words).capitalize() + "."


class Topic:
    def __init__(self, index, context, title, file_name, popup):
        self.index = index
        self.context = context
        self.title = title
        self.file_name = file_name
        self.popup = popup
        self.extra = []        # further anchor names (link fragments)
        self.mapped = False    # defined in the map header
        self.huge = None       # ("links" or "images", count) for a huge popup body


def make_topics(rng, n):
    used = set()
    topics = []
    for i in range(n):
        popup = i % 10 == 9
        prefix = POPUP_PREFIX if popup else PREFIXES[(i // 50) % len(PREFIXES)]
        while True:
            name = prefix + "".join(rng.choice(B36) for _ in range(4)) + ".htm"
            if name not in used:
                used.add(name)
                break
        if popup:
            context = "idh_pop_%05d" % i
            title = "(Untitled)"
        else:
            context = "idh_topic_%05d" % i
            title = "%s %05d" % (sentence(rng, 3)[:-1], i)
        t = Topic(i, context, title, name, popup)
        if not popup and rng.random() < 0.3:
            t.extra.append("%s_sec%d" % (context, rng.randint(1, 3)))
        elif popup and rng.random() < 0.2:
            t.extra.append("%s_alt" % context)  # a second ID for the same popup
        topics.append(t)
    return topics


def topic_html(rng, t, normals, popups):
    lines = [
        '<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 3.2 Final//EN">',
        "<HTML>",
        "<HEAD>",
        '<META HTTP-EQUIV="Content-Type" Content="text/html; charset=Windows-1252">',
        "<TITLE>%s</TITLE>" % t.title,
        "</HEAD>",
        "",
        '<BODY BGCOLOR="#FFFFFF" TEXT="#000000">',
        "",
    ]
    if t.popup:
        names = "".join('<A NAME="%s"></A>' % name for name in [t.context] + t.extra)
        lines += ['<P>%s%s</P>' % (names, sentence(rng, 12)), ""]
        if t.huge and t.huge[0] == "links":
            lines += ["".join('<A HREF="%s">w%d</A> ' % (t.file_name, i % 10)
                              for i in range(t.huge[1]))]
        elif t.huge:
            lines += ["".join('<IMG SRC="../images/%s"> ' % IMAGES[i % len(IMAGES)]
                              for i in range(t.huge[1]))]
    else:
        lines += ['<P><A NAME="%s"></A><B>%s</B></P>' % (t.context, t.title), ""]
        for _ in range(rng.randint(1, 3)):
            other = rng.choice(normals)
            frag = ""
            if other.extra and rng.random() < 0.5:
                frag = "#" + other.extra[0]
            lines += ['<P>%s See <A HREF="%s%s">%s</A>.</P>' % (
                sentence(rng, 10), other.file_name, frag, other.title), ""]
        if popups and rng.random() < 0.6:
            p = rng.choice(popups)
            lines += ['<P>%s A <A HREF="%s">%s</A> %s</P>' % (
                sentence(rng, 6), p.file_name, rng.choice(WORDS), sentence(rng, 5)), ""]
        for name in t.extra:
            lines += ['<P><A NAME="%s"></A><B>%s</B></P>' % (name, sentence(rng, 3)), ""]
            lines += ["<P>%s</P>" % sentence(rng, 15), ""]
        if rng.random() < 0.2:
            lines += ['<P><IMG SRC="../images/%s" ALT="" BORDER=0></P>' % rng.choice(IMAGES), ""]
    lines += ["</BODY>", "</HTML>"]
    return crlf(lines)


def main():
    if len(sys.argv) not in (3, 4, 5):
        sys.exit(__doc__)
    out, n = sys.argv[1], int(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) >= 4 else 1
    huge = int(sys.argv[4]) if len(sys.argv) == 5 else 0
    rng = random.Random("%d/%d" % (n, seed))
    if os.path.isdir(out):
        shutil.rmtree(out)
    os.makedirs(os.path.join(out, "html"))
    os.makedirs(os.path.join(out, "images"))

    topics = make_topics(rng, n)
    normals = [t for t in topics if not t.popup]
    popups = [t for t in topics if t.popup]
    # Popups linked from topics are the first 70%; the rest are called only by
    # the application through map IDs.
    linked = popups[: (len(popups) * 7) // 10]
    if huge:
        linked[0].huge, linked[1].huge = ("links", huge), ("images", huge)
    for t in topics:
        with open(os.path.join(out, "html", t.file_name), "wb") as f:
            f.write(topic_html(rng, t, normals, linked))
    for i, name in enumerate(IMAGES):
        with open(os.path.join(out, "images", name), "wb") as f:
            f.write(gif_image(8, 8, (30 * i, 255 - 30 * i, 128)))

    # Map: every popup and about half the ordinary topics have a help ID.
    for t in topics:
        t.mapped = t.popup or rng.random() < 0.5
    mapped = [t for t in topics if t.mapped]
    direct = mapped[:DIRECT_MAP_IDS]
    header = ["// Help map of the Bench application", ""]
    header += ["#define %-24s 0x%X" % (t.context.upper(), 0x10000 + t.index)
               for t in mapped[DIRECT_MAP_IDS:]]
    header += ["#define %-24s 0x%X" % (t.extra[0].upper(), 0x80000 + t.index)
               for t in popups if t.extra]
    header += ["#define IDH_RESERVED             0"]
    with open(os.path.join(out, "Bench.hh"), "wb") as f:
        f.write(crlf(header))

    alias_src = normals[:HPJ_ALIASES]
    hpj = [
        "[OPTIONS]",
        "LCID=0x409 0x0 0x0 ;English (U.S.)",
        "CONTENTS=%s" % normals[0].context,
        "TITLE=Bench Help",
        "COMPRESS=true",
        "HLP=Bench.HLP",
        "",
        "[FILES]",
        "guide.rtf",
        "popups.rtf",
        "",
        "[ALIAS]",
    ]
    hpj += ["HID_ALIAS_%02d = %s" % (i, t.context) for i, t in enumerate(alias_src)]
    hpj += ["", "[MAP]", "#include <Bench.hh>"]
    hpj += ["%s %d" % (t.context, 0x10000 + t.index) for t in direct]
    hpj += ["", "[WINDOWS]", 'main="Bench Help",,27904,(r14876671),(r12632256),f3', ""]
    with open(os.path.join(out, "Bench.hpj"), "wb") as f:
        f.write(crlf(hpj))

    hhp = [
        "[OPTIONS]",
        "Compatibility=1.1 or later",
        "Compiled file=Bench.chm",
        "Contents file=Contents.hhc",
        "Default topic=html\\%s" % normals[0].file_name,
        "Display compile progress=No",
        "Index file=Bench.hhk",
        "Language=0x409 English (United States)",
        "Title=Bench Help",
        "",
        "",
        "[FILES]",
    ]
    hhp += ["html\\" + t.file_name for t in topics]
    hhp += ["", "[ALIAS]"]
    hhp += ["%s = html\\%s" % (t.context, t.file_name) for t in topics]
    hhp += ["", "[MAP]", "#include Bench.hh", "", "[INFOTYPES]", ""]
    with open(os.path.join(out, "Bench.hhp"), "wb") as f:
        f.write(crlf(hhp))

    # Contents: books of 50 topics.
    hhc = list(CONTENTS_HEAD)
    for b in range(0, len(normals), 50):
        hhc += ["\t<LI> <OBJECT type=\"text/sitemap\">",
                "\t\t<param name=\"Name\" value=\"Book %d\">" % (b // 50 + 1),
                "\t\t</OBJECT>", "\t<UL>"]
        for t in normals[b:b + 50]:
            hhc += ["\t\t<LI> <OBJECT type=\"text/sitemap\">",
                    "\t\t\t<param name=\"Name\" value=\"%s\">" % t.title,
                    "\t\t\t<param name=\"Local\" value=\"html\\%s\">" % t.file_name,
                    "\t\t\t</OBJECT>"]
        hhc += ["\t</UL>"]
    hhc += ["</UL>", "</BODY></HTML>"]
    with open(os.path.join(out, "Contents.hhc"), "wb") as f:
        f.write(crlf(hhc))

    # Index: one keyword per ordinary topic, some with a second target.
    hhk = ["<HTML>", "<!-- Sitemap 1.0 -->", '<OBJECT type="text/site properties">',
           "</OBJECT>", "<UL>"]
    for t in normals:
        hhk += ["\t<LI> <OBJECT type=\"text/sitemap\">",
                "\t\t<param name=\"Keyword\" value=\"%s\">" % t.title.lower(),
                "\t\t<param name=\"Name\" value=\"%s\">" % t.title,
                "\t\t<param name=\"Local\" value=\"html/%s\">" % t.file_name]
        if t.extra:
            hhk += ["\t\t<param name=\"Name\" value=\"%s\">" % t.extra[0],
                    "\t\t<param name=\"Local\" value=\"html/%s#%s\">" % (t.file_name, t.extra[0])]
        hhk += ["\t\t</OBJECT>"]
    hhk += ["</UL>", "</HTML>"]
    with open(os.path.join(out, "Bench.hhk"), "wb") as f:
        f.write(crlf(hhk))


if __name__ == "__main__":
    main()
