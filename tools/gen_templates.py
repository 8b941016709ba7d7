#!/usr/bin/env python3
"""Writes the dialog templates: the placement of every control of every dialog
in the four layouts (portrait 138x167, tall 138x217, landscape 179x120, wide
229x120, in dialog units).

Each dialog is a function that places its controls for one layout (width W,
height H); the script checks that every layout yields the same controls in the
same order and emits them as data, one control per line:

  src/res/templates/Dialogs.cpp     every dialog but the value entry ones
  src/res/templates/ValueEntry.cpp  password, number, text and rotation entry

and the names code and tests give the controls, one namespace per dialog
(ctl::InsText::kHeight; kOk and kCancel wherever a dialog has them):

  src/res/templates/ControlIds.h

The output is final as written: no formatter pass is wanted, and the data sits
between clang-format off/on markers so that formatting the tree leaves it be.

Usage, from anywhere in the checkout:

  python3 tools/gen_templates.py          rewrite the files after a change
  python3 tools/gen_templates.py --check  only compare; exit status 1 and the
                                          names of the files that differ when
                                          the checked-in text is not the output

The build runs the check as a test (ctest -R templates_generated)."""
import argparse
import difflib
import os
import sys

ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), '..'))

SIZES = [(138, 167), (138, 217), (179, 120), (229, 120)]
M = 6          # margin
BTN_H = 16     # push button height
ROW = 14       # pitch of label/field rows
EDIT_H = 12
COMBO_H = 13
LAND_BTN_W = 44
# A group box's title stands on its own line above the frame line, so the first
# row inside a group starts this far below the group's top edge...
GB_TOP = 12
# ...and its contents keep at least this far from the side and bottom lines.
GB_PAD = 2


class Layout:
    def __init__(self, v, size=None):
        self.v = v
        self.W, self.H = size or SIZES[v]
        self.items = []

    @property
    def land(self):
        return self.v >= 2

    def add(self, cid, kind, label, x, y, w, h, style=0, **kw):
        self.items.append(dict(id=cid, kind=kind, label=label, style=style,
                               rect=(int(x), int(y), int(w), int(h)), **kw))

    def ok_cancel(self, ok=11196, cancel=11197):
        """OK and Cancel: a bottom row in portrait, the foot of a right-hand
        column in landscape (where the thumb rests)."""
        if self.land:
            x = self.W - M - LAND_BTN_W
            self.add(ok, 'PushButton', 'OK', x, self.H - M - 2 * BTN_H - 4, LAND_BTN_W, BTN_H, 'kDefault')
            self.add(cancel, 'PushButton', 'Cancel', x, self.H - M - BTN_H, LAND_BTN_W, BTN_H)
        else:
            w = (self.W - 2 * M - 6) // 2
            y = self.H - M - BTN_H
            self.add(ok, 'PushButton', 'OK', M, y, w, BTN_H, 'kDefault')
            self.add(cancel, 'PushButton', 'Cancel', M + w + 6, y, w, BTN_H)

    def side_buttons(self, buttons, top=M):
        """Action buttons: a right-hand column from the top in landscape."""
        x = self.W - M - LAND_BTN_W
        y = top
        for cid, label in buttons:
            self.add(cid, 'PushButton', label, x, y, LAND_BTN_W, BTN_H)
            y += BTN_H + 4
        return y

    def row_buttons(self, buttons, y, x0=M, width=None):
        width = width or (self.W - 2 * M)
        n = len(buttons)
        w = (width - 4 * (n - 1)) // n
        for i, (cid, label) in enumerate(buttons):
            self.add(cid, 'PushButton', label, x0 + i * (w + 4), y, w, BTN_H)
        return y + BTN_H

    def content_right(self):
        return self.W - M - (LAND_BTN_W + 6 if self.land else 0)

    def content_bottom(self):
        return self.H - M - (0 if self.land else BTN_H + 6)

    def field(self, label, cid, x, y, lw, fw, kind='Edit', style='kNumeric | kAutoHScroll | kBorder',
              h=None, **kw):
        self.add(65535, 'Static', label, x, y + 2, lw, 9, **{k: v for k, v in kw.items() if k.startswith('alt')})
        h = h or (COMBO_H if kind == 'ComboBox' else EDIT_H)
        self.add(cid, kind, '', x + lw + 2, y, fw, h, style)
        return y + ROW


# ------------------------------------------------------------------ dialogs

def d11004(L):  # Image calibration
    right = L.content_right()
    x, y = M, M
    L.add(65535, 'Static', 'Scale\\n( Meter/Pixel ) :', x, y, 66, 18, 'kMultiline')
    L.add(11180, 'Edit', '', x + 68, y + 3, right - x - 68, EDIT_H, 'kNumeric | kAutoHScroll | kBorder')
    y += 24
    lw, pw = 44, 20
    fw = right - x - lw - pw - 6
    L.add(65535, 'Static', 'Meters', x + lw + 2, y, fw, 9, 'kCenter')
    L.add(65535, 'Static', 'Pixel', right - pw, y, pw, 9, 'kCenter')
    y += 11
    rows = [('East Min :', 11181, None), ('North Min :', 11182, None),
            ('East Max :', 11183, 11178), ('North Max :', 11184, 11179)]
    for label, cid, pix in rows:
        L.add(65535, 'Static', label, x, y + 2, lw, 9)
        L.add(cid, 'Edit', '', x + lw + 2, y, fw, EDIT_H, 'kNumeric | kAutoHScroll | kBorder')
        L.add(pix or 65535, 'Static', '0' if pix is None else '', right - pw, y + 2, pw, 9, 'kRight')
        y += ROW
    extra = [(11176, 'Scale Calc.'), (11177, 'Max Dim.')]
    if L.land:
        L.side_buttons(extra)
    else:
        L.row_buttons(extra, L.H - M - 2 * BTN_H - 6)
    L.ok_cancel(11175, 11174)


def d11008(L):  # Cursor option
    right = L.content_right()
    L.add(65535, 'GroupBox', 'Cursor settings', M, M, right - M, 56)
    x = M + 6
    L.add(11158, 'CheckBox', 'Full screen', x, M + 12, 80, 11)
    y = M + 26
    lw = 70
    fw = right - x - lw - 8
    y = L.field('Cross dimension :', 11159, x, y, lw, fw)
    L.field('Search dimension :', 11160, x, y, lw, fw)
    L.ok_cancel()


def d11020(L):  # Grid & Snap container
    page = {0: (133, 113), 1: (133, 167), 2: (179, 92), 3: (229, 92)}[L.v]
    if L.land:
        L.add(11172, 'TabControl', '', 0, 0, L.W - 92, 14)
        L.add(11173, 'Static', '', 0, 14, page[0], page[1] - 1, 'kHidden | kBorder')
        # The pages fill the width; OK and Cancel sit beside the tabs.
        L.add(11196, 'PushButton', 'OK', L.W - 2 * 40 - 6, 0, 38, 13, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', L.W - 42, 0, 40, 13)
    else:
        L.add(11172, 'TabControl', '', 2, 3, L.W - 4, 14)
        L.add(11173, 'Static', '', 2, 18, page[0] + 1, page[1], 'kHidden | kBorder')
        L.ok_cancel()


def d11024(L):  # Text insert
    style_rows = (('Height :', 11140, 'Edit'), ('Width factor :', 11143, 'Edit'),
                  ('Rotation :', 11142, 'Edit'), ('Slant angle :', 11141, 'Edit'),
                  ('Justify :', 11144, 'ComboBox'), ('Style :', 11145, 'ComboBox'))
    if L.land:
        lcol = 66 if L.v == 2 else 86
        rx = M + lcol + 4
        rw = L.W - M - rx
        pitch = 13
        gh = GB_TOP + 2 * pitch + EDIT_H + GB_PAD + 1
        L.add(65535, 'GroupBox', 'Text...', M, 2, lcol, gh)
        for i, cid in enumerate((11139, 11146, 11147)):
            L.add(cid, 'Edit', '', M + 4, 2 + GB_TOP + i * pitch, lcol - 8, EDIT_H, 'kAutoHScroll | kBorder')
        L.add(65535, 'GroupBox', 'Style...', rx, 2, rw, GB_TOP + 5 * pitch + COMBO_H + GB_PAD + 1)
        lw = 50
        y = 2 + GB_TOP
        fw = rw - lw - 10
        for label, cid, kind in style_rows:
            style = 'kNumeric | kAutoHScroll | kBorder' if kind == 'Edit' else '0'
            y = L.field(label, cid, rx + 4, y, lw, fw, kind, style) + pitch - ROW
        by = L.H - M - 2 * BTN_H - 4
        L.add(11196, 'PushButton', 'OK', M, by, lcol, BTN_H, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', M, by + BTN_H + 4, lcol, BTN_H)
        return
    # Nine rows and two group titles above the button row: the short portrait
    # layout packs its fields one unit tighter to keep them all clear of it.
    tall = L.v == 1
    pitch, edit_h, combo_h = (15, EDIT_H, COMBO_H) if tall else (12, EDIT_H - 1, COMBO_H - 1)
    gw = L.W - 2 * M
    y0 = 2 if tall else 1
    gh = GB_TOP + 2 * pitch + edit_h + GB_PAD + 1
    L.add(65535, 'GroupBox', 'Text...', M, y0, gw, gh)
    for i, cid in enumerate((11139, 11146, 11147)):
        L.add(cid, 'Edit', '', M + 4, y0 + GB_TOP + i * pitch, gw - 8, edit_h, 'kAutoHScroll | kBorder')
    y0 += gh + (6 if tall else 1)
    L.add(65535, 'GroupBox', 'Style...', M, y0, gw, GB_TOP + 5 * pitch + combo_h + GB_PAD + 1)
    y = y0 + GB_TOP
    lw = 52
    for label, cid, kind in style_rows:
        style = 'kNumeric | kAutoHScroll | kBorder' if kind == 'Edit' else '0'
        L.field(label, cid, M + 4, y, lw, gw - lw - 10, kind, style,
                h=combo_h if kind == 'ComboBox' else edit_h)
        y += pitch
    L.ok_cancel()


def table_dialog(L, combo_id, list_id, buttons, extra_rows=None):
    """Layers and line types: filter, list, action buttons; the name editor."""
    right = L.content_right()
    L.add(11133, 'Static', 'Show :', M, M + 2, 26, 9)
    L.add(combo_id, 'ComboBox', '', M + 28, M, right - M - 28, COMBO_H)
    top = M + COMBO_H + 4
    bottom = L.content_bottom()
    if not L.land:
        bottom -= BTN_H + 4
    extra_h = 0
    if extra_rows:
        extra_h = ROW + 2
        bottom -= extra_h
    L.add(list_id, 'ListView', '', M, top, right - M, bottom - top,
          'kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder')
    if extra_rows:
        extra_rows(L, bottom + 4, right)
    if L.land:
        L.side_buttons(buttons)
    else:
        L.row_buttons(buttons, L.H - M - 2 * BTN_H - 4)
    L.ok_cancel(1, 2)
    L.add(11132, 'Edit', '', M + 2, top + 14, 60, EDIT_H, 'kHidden | kAutoHScroll | kBorder')


def d11028(L):  # Layers
    table_dialog(L, 1128, 1129, [(1130, 'New'), (1131, 'Delete'), (1132, 'Current')])


def d11032(L):  # Lines
    def scale(L, y, right):
        L.add(11131, 'Static', 'Glob scale fact.:', M, y + 2, 64, 9)
        L.add(11130, 'Edit', '', M + 66, y, right - M - 66, EDIT_H, 'kNumeric | kAutoHScroll | kBorder')
    table_dialog(L, 11125, 11126, [(11128, 'Load...'), (11127, 'Delete'), (11129, 'Current')], scale)


def d11036(L):  # Loading Line Type
    right = L.content_right()
    y = M
    if L.land:
        L.add(65535, 'Static', 'Load the line types:', M, y + 3, 76, 9, hiddenIn='0x3')
        L.add(11134, 'PushButton', 'File...', M + 78, y, right - M - 78, 14)
        y += 17
        L.add(11135, 'Edit', '', M, y, right - M, EDIT_H, 'kReadOnly | kAutoHScroll | kBorder')
        y += EDIT_H + 3
    else:
        L.add(65535, 'Static', 'Load the line types:', M, y, 76, 9, hiddenIn='0x3')
        L.add(11134, 'PushButton', 'File...', M, y, 44, 14)
        L.add(11135, 'Edit', '', M + 48, y + 1, right - M - 48, EDIT_H, 'kReadOnly | kAutoHScroll | kBorder')
        y += 18
    L.add(65535, 'Static', 'Line types available:', M, y, right - M, 9)
    y += 11
    L.add(1162, 'Static', '', M, y, right - M, L.content_bottom() - y, 'kHidden')
    # The check box grid the dialog makes over the placeholder: a control of
    # the template too, so that it is found by its id like every other one.
    L.add(2000, 'Custom', '', M, y, right - M, L.content_bottom() - y, 'kBorder')
    L.ok_cancel(1, 2)


def d11040(L):  # Angle system
    W = L.W
    title = 'Choice of the measuring system of the angles'
    if L.land:
        y, h = M, L.H - 26
        L.add(65535, 'Static', title, 1, M, W - 2, 9, 'kMultiline', hiddenIn='0xC')
        L.add(65535, 'GroupBox', title, 1, y, W - 2, h, altLabel='', altLabelIn='0x3')
        top = y + GB_TOP + 2
    else:
        # The title is wider than a portrait screen: it stands above the frame
        # on two lines, and the frame goes without a caption there.
        L.add(65535, 'Static', title, 3, 4, W - 6, 20, 'kMultiline', hiddenIn='0xC')
        y, h = 26, 59
        L.add(65535, 'GroupBox', title, 1, y, W - 2, h, altLabel='', altLabelIn='0x3')
        top = y + 5
    L.add(11123, 'RadioButton', 'Degrees ( 360\u00b0 )\\nOrigin at East - Counterclockwise', 3, top,
          W - 6, 22, 'kGroupStart | kMultiline')
    L.add(11124, 'RadioButton', 'Gons ( 400\u00b0 )\\nOrigin at North - Clockwise', 3, top + 26,
          W - 6, 22, 'kMultiline')
    if L.land:
        bw = 50
        L.add(11196, 'PushButton', 'OK', W - 2 * bw - 8, L.H - 3 - 15, bw, 15, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', W - bw - 4, L.H - 3 - 15, bw, 15)
    else:
        L.ok_cancel()


def d11044(L):  # Color options
    # The dialog fits whole cells into each strip's rectangle when it opens
    # (palette 216 x 45, standard and grey 90 x 20 at most, times the density
    # multiplier, never beyond the rectangle), keeping their top-left corners;
    # each rectangle here leaves room for the multiplier 1 sizes at the dialog
    # font's 1.75 pixels per unit.
    SW, SH = 52, 12    # standard and grey strips
    PW, PH = 124, 26   # each palette strip; the two halves touch
    gw = SW + 6
    gh = GB_TOP + SH + GB_PAD
    tall = L.v == 1

    def strips_row(x, y):
        L.add(65535, 'GroupBox', 'Standard color', x, y, gw, gh)
        L.add(11187, 'Custom', '', x + 3, y + GB_TOP, SW, SH)
        L.add(65535, 'GroupBox', 'Gray shades', x + gw + 2, y, gw, gh,
              altLabel='Gray tone', altLabelIn='0xC')
        L.add(11189, 'Custom', '', x + gw + 5, y + GB_TOP, SW, SH)

    def logical(x, y, w, stacked):
        if stacked:
            L.add(65535, 'GroupBox', 'Logical colors', x, y, w, GB_TOP + 2 * 13 + 2 + GB_PAD)
            L.add(11190, 'PushButton', 'By Layer', x + 2, y + GB_TOP, w - 4, 13)
            L.add(11191, 'PushButton', 'By Block', x + 2, y + GB_TOP + 15, w - 4, 13)
        else:
            L.add(65535, 'GroupBox', 'Logical colors', x, y, w, GB_TOP + 13 + GB_PAD)
            bw = (w - 6) // 2
            L.add(11190, 'PushButton', 'By Layer', x + 2, y + GB_TOP, bw, 13)
            L.add(11191, 'PushButton', 'By Block', x + 4 + bw, y + GB_TOP, bw, 13)

    def palette(x, y):
        L.add(65535, 'Static', 'Full palette of colors', x, y, 100, 9)
        L.add(11192, 'Custom', '', x, y + 10, PW, PH)
        L.add(11193, 'Custom', '', x, y + 10 + PH, PW, PH)
        return y + 10 + 2 * PH

    name_style = 'kReadOnly | kAutoHScroll | kBorder'
    if L.land:
        # The logical colours beside the strips, whose group title needs the
        # room; the name and the preview beside the palette. The narrow layout
        # has no width left for a column of its own: OK and Cancel go under
        # the name, inside the frame; the wide one keeps them in the right-hand
        # column where the thumb rests.
        wide = L.v == 3
        L.add(65535, 'GroupBox', 'Color options', 1, 1, 176 if wide else 177, L.H - 3 if wide else L.H - 2)
        strips_row(3, 13)
        logical(3 + 2 * gw + 4, 13, 52, True)
        top = 13 + GB_TOP + 28 + GB_PAD  # under the logical colours
        palette(3, top - 9)
        cx, cw = PW + 6, 45
        L.add(65535, 'Static', 'Color :', cx, top + 4, 28, 9)
        L.add(11194, 'Edit', '', cx, top + 19, cw, EDIT_H, name_style, disabledIn='0xC')
        L.add(11195, 'Custom', '', cx + cw - 15, top + 2, 15, 15, 'kBorder')
        if wide:
            L.ok_cancel()
        else:
            L.add(11196, 'PushButton', 'OK', cx, top + 33, cw, 13, 'kDefault')
            L.add(11197, 'PushButton', 'Cancel', cx, top + 48, cw, 13)
        return
    right = L.content_right()
    if tall:
        # Room to spare: one row each, the name and a larger preview last.
        L.add(65535, 'GroupBox', 'Color options', 2, 1, right - 1, 167)
        strips_row(6, 14)
        logical(6, 14 + gh + 4, right - 8, False)
        y = palette(6, 14 + gh + 4 + GB_TOP + 13 + GB_PAD + 5)
        L.add(65535, 'Static', 'Color :', 6, y + 12, 26, 9)
        L.add(11194, 'Edit', '', 34, y + 10, right - 64, EDIT_H, name_style, disabledIn='0xC')
        L.add(11195, 'Custom', '', right - 26, y + 6, 20, 20, 'kBorder')
        L.ok_cancel()
        return
    # The short portrait layout puts the name and the preview beside the
    # logical colours to leave the palette its height above the buttons.
    L.add(65535, 'GroupBox', 'Color options', 2, 1, right - 1, 131)
    strips_row(6, 13)
    y = 13 + gh + 1
    logical(6, y, 74, False)
    palette(6, y + GB_TOP + 13 + GB_PAD + 1)
    L.add(65535, 'Static', 'Color :', 82, y + 3, 30, 9)
    L.add(11194, 'Edit', '', 82, y + 15, 48, EDIT_H, name_style, disabledIn='0xC')
    L.add(11195, 'Custom', '', 116, y, 14, 14, 'kBorder')
    L.ok_cancel()


def d11048(L):  # General options
    right = L.content_right()
    x, y = M, M
    L.add(65535, 'Static', 'Window color ...', x, y, 80, 9)
    y += 12
    L.add(65535, 'Static', 'Element:', x, y + 2, 34, 9)
    L.add(11113, 'ComboBox', '', x + 36, y, right - x - 36, COMBO_H)
    y += 17
    pal_w = 90 if L.land else right - x
    L.add(11121, 'Static', '', x, y, pal_w, 26, 'kHidden')
    pal_y = y
    y += 30
    for label, val, bar in (('R :', 11120, 11114), ('G :', 11119, 11115), ('B :', 11118, 11116)):
        L.add(65535, 'Static', label, x, y + 1, 12, 9)
        L.add(val, 'Static', 'XXX', x + 13, y + 1, 16, 9, 'kRight')
        L.add(bar, 'ScrollBarH', '', x + 32, y, (right - x - 32) if L.land else 66, 10)
        y += 12
    if L.land:
        cx = x + pal_w + 4
        L.add(11117, 'Custom', '', cx, pal_y, right - cx, 26, 'kBorder')
    else:
        L.add(11117, 'Custom', '', x + 102, y - 36, right - x - 102, 34, 'kBorder')
    y += 2
    L.add(1133, 'CheckBox', 'Colorize selected entities', x, y, 110, 11)
    if L.land:
        L.side_buttons([(11112, 'Default')])
    else:
        L.add(11112, 'PushButton', 'Default', x, L.H - M - 2 * BTN_H - 6, 60, BTN_H)
    L.ok_cancel()


def d11052(L):  # New style
    right = L.content_right()
    L.add(11111, 'GroupBox', 'Title', M, M, right - M, 44)
    L.add(65535, 'Static', 'Style name :', M + 6, M + 12, 60, 9)
    L.add(11110, 'Edit', '', M + 6, M + 24, right - M - 12, EDIT_H, 'kAutoHScroll | kBorder')
    L.ok_cancel()


def d11056(L):  # Text style
    if L.land:
        lcol = 92 if L.v == 2 else 116
        lx, lw = 2, lcol
        rx = lx + lcol + 3
        rw = L.W - rx - 2
    else:
        lx, lw = 4, L.W - 8
        rx, rw = lx, lw
    # Text style group: list, then New / Rename / Delete
    y = 1
    two_rows = L.v == 2
    by = y + GB_TOP + COMBO_H + 2
    th = by + (30 if two_rows else 14) + GB_PAD - y
    L.add(65535, 'GroupBox', 'Text style', lx, y, lw, th)
    L.add(11100, 'ComboBox', '', lx + 4, y + GB_TOP, lw - 8, COMBO_H)
    if two_rows:
        bw = (lw - 8) // 2
        places = ((lx + 3, by), (lx + 5 + bw, by), (lx + 3, by + 16))
    else:
        bw = (lw - 10) // 3
        places = tuple((lx + 3 + i * (bw + 2), by) for i in range(3))
    for (cid, label), (bx, bty) in zip(((11101, 'New'), (11102, 'Rename'), (11103, 'Delete')), places):
        L.add(cid, 'PushButton', label, bx, bty, bw, 14)
    y += th + 1
    fh = GB_TOP + 2 * COMBO_H + 1 + GB_PAD
    L.add(65535, 'GroupBox', 'Font', lx, y, lw, fh)
    fy = y + GB_TOP
    L.add(65535, 'Static', 'Name :', lx + 4, fy + 2, 34, 9)
    L.add(11104, 'ComboBox', '', lx + 40, fy, lw - 40 - 22, COMBO_H, 'kSorted | kOwnerDraw')
    L.add(11122, 'PushButton', '', lx + lw - 20, fy, 16, 13, 'kIconOnly')
    fy += COMBO_H + 1
    L.add(65535, 'Static', 'Font style:', lx + 4, fy + 2, 40, 9)
    L.add(11105, 'ComboBox', '', lx + 46, fy, lw - 50, COMBO_H)
    y += fh + 1
    if L.land:
        y = 1
    eh = GB_TOP + 2 * 13 + EDIT_H + GB_PAD + (0 if not L.land else 12)
    L.add(65535, 'GroupBox', 'Effects', rx, y, rw, eh)
    lbl = 50 if not L.v == 2 else 40
    fy = y + GB_TOP
    for label, cid, alt in (('Heigth:', 11106, None), ('Width factor:', 11107, 'Width fact.:'),
                            ('Oblique ang.:', 11108, 'Slant A.:')):
        kw = dict(altLabel=alt, altLabelIn='0x4') if alt else {}
        if L.land:
            fw = rw - lbl - 10
        else:
            fw = 32
        L.field(label, cid, rx + 4, fy, lbl, fw, **kw)
        fy += 13
    if L.land:
        L.add(11109, 'CheckBox', 'Vertical', rx + 4, fy, 50, 11)
        by = L.H - 2 - 2 * BTN_H - 4
        L.add(11196, 'PushButton', 'OK', rx + 4, by, rw - 8, BTN_H, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', rx + 4, by + BTN_H + 4, rw - 8, BTN_H)
    else:
        L.add(11109, 'CheckBox', 'Vertical', rx + lbl + 38, y + GB_TOP + 13, rw - lbl - 40, 11)
        L.ok_cancel()


def d11060(L):  # Snap type selection
    W = L.W
    labels = ['End points', 'Mid point', 'Intersection', 'Center', 'Quadrant',
              'Tangent', 'Perpendic.', 'Insert', 'Connect to pt.', 'Near']
    modes = ((1135, 'Free drawing'), (1136, 'Input coord.'), (1137, 'Snap'))
    if L.land:
        # Modes side by side, the snap types in two columns, the buttons below.
        cw = (W - 12) // 2
        L.add(65535, 'GroupBox', 'Mode', 2, 1, W - 4, GB_TOP + 10 + GB_PAD)
        widths = (62, 60, W - 4 - 10 - 122)
        rx = 5
        for i, (cid, label) in enumerate(modes):
            L.add(cid, 'RadioButton', label, rx, 1 + GB_TOP, widths[i], 10, 'kGroupStart' if i == 0 else 0)
            rx += widths[i] + 1
        top, pitch = 26, 12
        L.add(65535, 'GroupBox', 'Snap type', 2, top, W - 4, GB_TOP + 4 * pitch + 10 + GB_PAD)
        for i, label in enumerate(labels):
            col, row = divmod(i, 5)
            L.add(1138 + i, 'CheckBox', label, 5 + col * (cw + 2), top + GB_TOP + row * pitch, cw, 10)
        bw = 50
        L.add(11196, 'PushButton', 'OK', W - 2 * bw - 8, L.H - 3 - 15, bw, 15, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', W - bw - 4, L.H - 3 - 15, bw, 15)
        return
    L.add(65535, 'GroupBox', 'Mode', 2, 2, W - 4, GB_TOP + 2 * 12 + 11 + GB_PAD)
    for i, (cid, label) in enumerate(modes):
        L.add(cid, 'RadioButton', label, 8, 2 + GB_TOP + i * 12, 80, 11, 'kGroupStart' if i == 0 else 0)
    top = 53
    pitch = 14 if L.v == 0 else 20
    L.add(65535, 'GroupBox', 'Snap type', 2, top, W - 4, GB_TOP + 4 * pitch + 11 + GB_PAD)
    # "Connect to pt." needs all the width a column can have.
    cw = (W - 9) // 2
    for i, label in enumerate(labels):
        col, row = divmod(i, 5)
        L.add(1138 + i, 'CheckBox', label, 4 + col * (cw + 1), top + GB_TOP + row * pitch, cw, 11)
    L.ok_cancel()


def d11064(L):  # Entity property
    right = L.content_right()
    x, y = M, M
    lw = 52 if L.v != 3 else 52
    L.add(65535, 'Static', 'Color:', x, y + 4, lw, 9)
    L.add(1155, 'Custom', '', x + lw + 2, y, 15, 15, 'kBorder')
    L.add(1154, 'Static', '', x + lw + 20, y + 4, right - x - lw - 20, 9)
    y += 19
    fw = right - x - lw - 2
    pitch = 18 if L.v == 1 else ROW + 1
    for label, cid in (('Entity set@@(no longer)', 1157), ('Layer:', 1158), ('Line types:', 1159)):
        if label.startswith('Entity'):
            L.add(65535, 'Static', label, x, y + 2, 88 if L.land else right - x, 9)
            L.add(cid, 'ComboBox', '', x + (90 if L.land else 0), y + (0 if L.land else 12),
                  right - x - 90 if L.land else right - x, COMBO_H)
            y += pitch if L.land else pitch + 12
            continue
        L.field(label, cid, x, y, lw, fw, 'ComboBox', '0')
        y += pitch
    L.field('Scale fact.:', 1156, x, y, lw, fw, altLabel='Scale factor:', altLabelIn='0x8')
    L.ok_cancel()


def d11072(L):  # Snap - Enter the coordinates
    right = L.content_right()
    L.add(65535, 'GroupBox', 'Enter the coordinates', M, M, right - M, 58)
    y = M + 12
    for label, cid in (('East :', 11185), ('North :', 11186), ('Elev. :', 11188)):
        y = L.field(label, cid, M + 6, y, 32, right - M - 46) + 1
    L.ok_cancel()


def d11076(L):  # Entity sets
    right = L.content_right()
    gh = GB_TOP + 13 + GB_PAD  # a group around one row of buttons
    if L.land:
        right = L.W - M - 66 - 4
        L.add(1152, 'ListView', '', M, M, right - M, L.H - 2 * M,
              'kReportView | kSingleSel | kOwnerDraw | kBorder')
        x = right + 4
        w = L.W - M - x
        half = (w - 8) // 2
        y = 1
        L.add(65535, 'GroupBox', 'New', x, y, w, gh)
        L.add(604, 'PushButton', 'CAD', x + 3, y + GB_TOP, half, 13)
        L.add(605, 'PushButton', 'Topog.', x + 5 + half, y + GB_TOP, half, 13)
        y += gh + 1
        L.add(65535, 'GroupBox', 'Delete', x, y, w, gh)
        L.add(600, 'PushButton', 'Delete', x + 3, y + GB_TOP, w - 6, 13)
        y += gh + 1
        L.add(65535, 'GroupBox', 'Move', x, y, w, gh)
        L.add(602, 'PushButton', 'Up', x + 3, y + GB_TOP, half, 13)
        L.add(603, 'PushButton', 'Down', x + 5 + half, y + GB_TOP, half, 13)
        by = L.H - 2 - 2 * 14 - 3
        L.add(1, 'PushButton', 'OK', x, by, w, 14, 'kDefault')
        L.add(2, 'PushButton', 'Cancel', x, by + 17, w, 14)
    else:
        bottom = L.H - M - BTN_H - 6 - 2 * gh - 3
        L.add(1152, 'ListView', '', M, M, right - M, bottom - M,
              'kReportView | kSingleSel | kOwnerDraw | kBorder')
        y = bottom + 2
        full = right - M
        boxes = [('New', [(604, 'CAD'), (605, 'Topog.')], M, y, full - 52),
                 ('Delete', [(600, 'Delete')], right - 48, y, 48),
                 ('Move', [(602, 'Up'), (603, 'Down')], M, y + gh + 1, full)]
        for label, btns, gx, gy, gw in boxes:
            L.add(65535, 'GroupBox', label, gx, gy, gw, gh)
            bw = (gw - 6 - 2 * (len(btns) - 1)) // len(btns)
            for j, (cid, bl) in enumerate(btns):
                L.add(cid, 'PushButton', bl, gx + 3 + j * (bw + 2), gy + GB_TOP, bw, 13)
        L.ok_cancel(1, 2)
    L.add(1161, 'Edit', '', M + 2, M + 14, 60, EDIT_H, 'kHidden | kAutoHScroll | kBorder')


def d11080(L):  # Edit hatch
    right = L.content_right()
    L.add(11209, 'TabControl', '', M, M - 2, right - M, 14)
    L.add(11210, 'ListView', '', M, M + 13, right - M, L.content_bottom() - M - 13,
          'kIconView | kSingleSel | kShowSelAlways | kBorder')
    L.ok_cancel(11207, 11208)


def d11084(L):  # Grid page
    W = L.W
    L.add(11168, 'CheckBox', 'Enable Grid', 6, 4, 70, 11)
    gh = L.H - 20
    L.add(65535, 'GroupBox', 'Settings...', 4, 17, W - 8, gh)
    y = 17 + GB_TOP
    L.add(11164, 'RadioButton', 'Grid free', 10, y, 60, 11, 'kGroupStart')
    y += 14
    lw = 44
    fw = 50 if L.land else min(70, W - 26 - lw)
    y = L.field('Interval N :', 11170, 18, y, lw, fw)
    y = L.field('Interval E :', 11171, 18, y, lw, fw)
    if L.land:
        L.add(11166, 'RadioButton', 'From snap', 18 + lw + fw + 8, 17 + GB_TOP, W - 8 - (18 + lw + fw + 8), 11)
    else:
        L.add(11166, 'RadioButton', 'From snap', 10, y + 2, 60, 11)


def d11088(L):  # Snap page
    W = L.W
    L.add(11161, 'CheckBox', 'Enable Snap', 6, 4, 70, 11)
    L.add(65535, 'GroupBox', 'Settings...', 4, 17, W - 8, L.H - 20)
    lw = 44
    rows = (('Interval N :', 11162), ('Interval E :', 11165), ('Angle :', 11167),
            ('Base N :', 11163), ('Base E :', 11169))
    if L.land:
        fw = (W - 16 - 2 * lw - 12) // 2
        for i, (label, cid) in enumerate(rows):
            col, row = (0, i) if i < 3 else (1, i - 3)
            L.field(label, cid, 10 + col * (lw + fw + 8), 17 + GB_TOP + row * ROW, lw, fw)
    else:
        fw = min(70, W - 20 - lw)
        y = 17 + GB_TOP
        for label, cid in rows:
            y = L.field(label, cid, 10, y, lw, fw) + (6 if L.v == 1 else 0)


def d11092(L):  # Select Type Line
    right = L.content_right()
    L.add(65535, 'Static', 'Select a line from those loaded:', M, M, right - M, 9)
    L.add(11203, 'ListView', 'List1', M, M + 12, right - M, L.content_bottom() - M - 12,
          'kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder')
    L.ok_cancel(1163, 1164)


# ------------------------------------------------------- value entry dialogs
# Prompts for a single value. Their titles and the caption of frame 11138 or
# the prompt 11213 are set by the code that opens them.

def d11000(L):  # Password
    right = L.content_right()
    # The prompt takes two lines unless the layout is wide enough for one.
    one_line = right - M >= 160
    ph = 9 if one_line else 20
    L.add(65535, 'Static', 'Enter password to open the drawing:', M, M + 2, right - M, ph, 'kMultiline')
    L.add(4779, 'Edit', '', M, M + ph + 6, right - M, EDIT_H, 'kPassword | kUppercase | kAutoHScroll | kBorder')
    L.ok_cancel()


def d11012(L):  # Number
    right = L.content_right()
    L.add(11138, 'GroupBox', 'Text', M, M, right - M, GB_TOP + 3 + EDIT_H + 5)
    L.field('Value :', 11137, M + 6, M + GB_TOP + 3, 40, right - M - 54)
    L.ok_cancel()


def d11016(L):  # Text
    right = L.content_right()
    L.add(11213, 'Static', 'Insert value:', M, M + 2, right - M, 9)
    L.add(11212, 'Edit', '', M, M + 13, right - M, EDIT_H, 'kAutoHScroll | kBorder')
    L.ok_cancel()


def d11068(L):  # Rotation: by one or two reference points, or by an angle
    right = L.content_right()
    x = M + 3
    y = M + GB_TOP
    pitch = 13
    L.add(11138, 'GroupBox', 'Text', M, M, right - M, GB_TOP + 3 * pitch + 3 + EDIT_H + 5)
    for i, (cid, label) in enumerate(((11204, '1 Reference point'), (11205, '2 Reference points'),
                                      (11206, 'Rotation angle specification'))):
        L.add(cid, 'RadioButton', label, x, y + i * pitch, right - x - 3, 11, 'kGroupStart' if i == 0 else 0)
    L.field('Value :', 11137, M + 6, y + 3 * pitch + 3, 40, right - M - 54)
    L.ok_cancel()


# Base id, title, help topic, child page, placement; one list per file written.
DIALOGS = [
    (11004, 'Image calibration', 'QuadraCE.htm#Dlg Calibra Immagine', False, d11004),
    (11008, 'Cursor option', 'QuadraCE.htm#Dlg OpzCursore', False, d11008),
    (11020, 'Grid & Snap', None, False, d11020),
    (11024, 'Text insert', 'QuadraCE.htm#Dlg InsGrafText', False, d11024),
    (11028, 'Layers', 'QuadraCE.htm#Dlg OpzPiano', False, d11028),
    (11032, 'Lines', 'QuadraCE.htm#Dlg OpzTipoLinea', False, d11032),
    (11036, 'Loading Line Type', 'QuadraCE.htm#Dlg LoadTipoLinea', False, d11036),
    (11040, 'Angle system', 'QuadraCE.htm#Dlg AngleSystem', False, d11040),
    (11044, 'Color options', 'QuadraCE.htm#Dlg OpzColori', False, d11044),
    (11048, 'General options', 'QuadraCE.htm#Dlg OpzGeneriche', False, d11048),
    (11052, 'New style', None, False, d11052),
    (11056, 'Text style', 'QuadraCE.htm#Dlg OpzStili', False, d11056),
    (11060, 'Snap type selection', 'QuadraCE.htm#Dlg SelTypeSnap', False, d11060),
    (11064, 'Entity property', None, False, d11064),
    (11072, 'Snap - Enter the coordinates', 'QuadraCE.htm#Dlg InsGrafCoord', False, d11072),
    (11076, 'Entity sets', None, False, d11076),
    (11080, 'Edit hatch', None, False, d11080),
    (11084, '', 'QuadraCE.htm#Dlg OpzGrid', True, d11084),
    (11088, '', 'QuadraCE.htm#Dlg OpzSnap', True, d11088),
    (11092, 'Select Type Line', None, False, d11092),
]

VALUE_ENTRY = [
    (11000, 'Insert password', None, False, d11000),
    (11012, 'Enter...', 'QuadraCE.htm#Dlg InsValore', False, d11012),
    (11016, 'Enter...', None, False, d11016),
    (11068, 'Enter...', 'QuadraCE.htm#Dlg ScegliRotazione', False, d11068),
]

# The help key of these dialogs does nothing: their help is the topic alone.
HELP_BY_TOPIC_ONLY = {11012, 11024, 11040, 11044, 11068, 11084, 11088}

# The names of ControlIds.h: each dialog's name, then a name for every control
# id of its template but OK and Cancel (the push buttons labelled so, which
# the template marks and the header names kOk and kCancel). The script stops
# when a control has no name or a name no control.
CONTROL_NAMES = {
    11000: ('Password', {4779: 'kPassword'}),
    11004: ('Calibration', {11180: 'kScale', 11181: 'kEastMin', 11182: 'kNorthMin',
                            11183: 'kEastMax', 11184: 'kNorthMax', 11178: 'kPixelEastMax',
                            11179: 'kPixelNorthMax', 11176: 'kScaleCalc', 11177: 'kMaxDim'}),
    11008: ('Cursor', {11158: 'kFullScreen', 11159: 'kCrossSize', 11160: 'kSearchSize'}),
    11012: ('GetDouble', {11138: 'kFrame', 11137: 'kValue'}),
    11016: ('GetString', {11213: 'kPrompt', 11212: 'kText'}),
    11020: ('GridSnap', {11172: 'kTabs', 11173: 'kPageArea'}),
    11024: ('InsText', {11139: 'kLine1', 11146: 'kLine2', 11147: 'kLine3', 11140: 'kHeight',
                        11143: 'kWidth', 11142: 'kRotation', 11141: 'kSlant', 11144: 'kJustify',
                        11145: 'kStyle'}),
    11028: ('Layers', {11133: 'kFilterLabel', 1128: 'kFilter', 1129: 'kList', 1130: 'kNew',
                       1131: 'kDelete', 1132: 'kCurrent', 11132: 'kNameEdit'}),
    11032: ('Ltypes', {11133: 'kFilterLabel', 11125: 'kFilter', 11126: 'kList',
                       11131: 'kScaleLabel', 11130: 'kScale', 11128: 'kLoad', 11127: 'kDelete',
                       11129: 'kCurrent', 11132: 'kNameEdit'}),
    11036: ('LtypeLoad', {11134: 'kFile', 11135: 'kPath', 1162: 'kPlaceholder', 2000: 'kGrid'}),
    11040: ('Angle', {11123: 'kDegrees', 11124: 'kGons'}),
    11044: ('Color', {11187: 'kStandard', 11189: 'kGrey', 11190: 'kByLayer', 11191: 'kByBlock',
                      11192: 'kPaletteEven', 11193: 'kPaletteOdd', 11194: 'kName',
                      11195: 'kPreview'}),
    11048: ('GeneralOptions', {11113: 'kElement', 11121: 'kPalette', 11120: 'kRedValue',
                               11114: 'kRed', 11119: 'kGreenValue', 11115: 'kGreen',
                               11118: 'kBlueValue', 11116: 'kBlue', 11117: 'kSwatch',
                               1133: 'kColorizeSelected', 11112: 'kDefault'}),
    11052: ('NewStyle', {11111: 'kFrame', 11110: 'kName'}),
    11056: ('TextStyle', {11100: 'kStyle', 11101: 'kNew', 11102: 'kRename', 11103: 'kDelete',
                          11104: 'kFont', 11122: 'kFontFile', 11105: 'kFontStyle',
                          11106: 'kHeight', 11107: 'kWidth', 11108: 'kOblique',
                          11109: 'kVertical'}),
    11060: ('OSnap', {1135: 'kFree', 1136: 'kCoordInput', 1137: 'kSnap', 1138: 'kEndPoints',
                      1139: 'kMidPoint', 1140: 'kIntersection', 1141: 'kCenter',
                      1142: 'kQuadrant', 1143: 'kTangent', 1144: 'kPerpendicular',
                      1145: 'kInsert', 1146: 'kConnect', 1147: 'kNear'}),
    11064: ('EntProperty', {1155: 'kColorSwatch', 1154: 'kColorName', 1157: 'kEntitySet',
                            1158: 'kLayer', 1159: 'kLtype', 1156: 'kScale'}),
    11068: ('Rotate', {11138: 'kFrame', 11204: 'kOnePoint', 11205: 'kTwoPoints',
                       11206: 'kAngle', 11137: 'kValue'}),
    11072: ('SnapPoint', {11185: 'kEast', 11186: 'kNorth', 11188: 'kElevation'}),
    11076: ('EntitySets', {1152: 'kList', 604: 'kNewCad', 605: 'kNewTopog', 600: 'kDelete',
                           602: 'kUp', 603: 'kDown', 1161: 'kNameEdit'}),
    11080: ('Hatch', {11209: 'kTabs', 11210: 'kList'}),
    11084: ('GridPage', {11168: 'kEnable', 11164: 'kFree', 11166: 'kFromSnap',
                         11170: 'kIntervalNorth', 11171: 'kIntervalEast'}),
    11088: ('SnapPage', {11161: 'kEnable', 11162: 'kIntervalNorth', 11165: 'kIntervalEast',
                         11167: 'kAngle', 11163: 'kBaseNorth', 11169: 'kBaseEast'}),
    11092: ('SelType', {11203: 'kList'}),
}

CHILD_SIZES = {11084: [(133, 112), (133, 167), (178, 90), (229, 90)],
               11088: [(133, 113), (133, 167), (179, 92), (229, 92)]}
WIDE_139 = {11000, 11060, 11076}

def sizes_for(base):
    if base in CHILD_SIZES:
        return CHILD_SIZES[base]
    s = list(SIZES)
    if base in WIDE_139:
        s[0] = (139, 167)
    return s


def layouts_of(base, fn):
    """The controls of one dialog in its four layouts, checked to be the same
    controls in the same order everywhere."""
    sizes = sizes_for(base)
    layouts = []
    for v in range(4):
        L = Layout(v, sizes[v])
        fn(L)
        layouts.append(L.items)
    n = len(layouts[0])
    for v in range(1, 4):
        if len(layouts[v]) != n:
            sys.exit('gen_templates: %d has %d controls in layout %d, %d in layout 0'
                     % (base, len(layouts[v]), v, n))
        for a, b in zip(layouts[0], layouts[v]):
            if (a['id'], a['kind'], a['label']) != (b['id'], b['kind'], b['label']):
                sys.exit('gen_templates: %d layout %d has %s %s "%s" where layout 0 has %s %s "%s"'
                         % (base, v, b['id'], b['kind'], b['label'], a['id'], a['kind'], a['label']))
            for key in ('style', 'hiddenIn', 'disabledIn', 'altLabel', 'altLabelIn'):
                if a.get(key) != b.get(key):
                    sys.exit('gen_templates: %d control %s: %s differs in layout %d' % (base, a['id'], key, v))
    return layouts


def wstr(text):
    return 'L"%s"' % text.replace('"', '\\"')


def ok_cancel_of(base, controls):
    """The ids of the push buttons labelled OK and Cancel (0: none)."""
    found = {}
    for c in controls:
        if c['kind'] == 'PushButton' and c['label'] in ('OK', 'Cancel'):
            if c['label'] in found:
                sys.exit('gen_templates: %d has two %s buttons' % (base, c['label']))
            found[c['label']] = c['id']
    return found.get('OK', 0), found.get('Cancel', 0)


def control_line(layouts, i):
    c = layouts[0][i]
    cid = 'kStaticId' if c['id'] == 65535 else str(c['id'])
    rects = ', '.join('{%d, %d, %d, %d}' % layouts[v][i]['rect'] for v in range(4))
    extra = ''
    alt = c.get('altLabel')
    if c.get('hiddenIn') or c.get('disabledIn') or alt is not None:
        # An empty alternative label is meant: the control shows no text there.
        extra = ', %s, %s, %s, %s' % (c.get('hiddenIn') or 0, c.get('disabledIn') or 0,
                                       wstr(alt) if alt is not None else 'nullptr',
                                       c.get('altLabelIn') or 0)
    return '    {%s, CtrlKind::%s, %s, %s, {%s}%s},' % (cid, c['kind'], wstr(c['label']),
                                                       c['style'] or 0, rects, extra)


def render(what, dialogs):
    """The text of one template file."""
    out = ['// %s' % what,
           '// Written by tools/gen_templates.py: change the script and run it, never this file.',
           '#include "Templates.h"', '', 'namespace veld5::tpl {', 'using namespace ulo;', '',
           '// One control per line, as the script writes it.',
           '// clang-format off',
           'namespace {']
    decls = []
    for base, title, help_, child, fn in dialogs:
        layouts = layouts_of(base, fn)
        out.append('const CtrlTemplate c%d[] = {' % base)
        out += [control_line(layouts, i) for i in range(len(layouts[0]))]
        out += ['};', '']
        sizes = ', '.join('{%d, %d}' % s for s in sizes_for(base))
        ok, cancel = ok_cancel_of(base, layouts[0])
        marks = ''
        if ok or cancel or base in HELP_BY_TOPIC_ONLY:
            marks = ', %d, %d' % (ok, cancel)
            if base in HELP_BY_TOPIC_ONLY:
                marks += ', true'
        decls.append('const DialogTemplate k%d{%d, %s, %s, %s, {%s}, c%d%s};' %
                     (base, base, wstr(title), wstr(help_) if help_ else 'nullptr',
                      'true' if child else 'false', sizes, base, marks))
    out.append('}  // namespace')
    out.append('')
    out += decls
    out += ['// clang-format on', '', '}  // namespace veld5::tpl', '']
    return '\n'.join(out)


def render_ids(dialogs):
    """The text of ControlIds.h: the named ids of every dialog, by base id."""
    out = ['#pragma once',
           '// The ids of the controls of every dialog template, by name: one namespace per',
           '// dialog (ctl::InsText::kHeight); kOk and kCancel are the buttons that act as OK',
           '// and Cancel; kTemplate is the dialog\'s own id (its template\'s base id, the one a',
           '// shown dialog reports). Code and tests address a control by these names, never by',
           '// its number.',
           '// Written by tools/gen_templates.py: change the script and run it, never this file.',
           '', 'namespace veld5::ctl {']
    for base, title, help_, child, fn in sorted(dialogs):
        if base not in CONTROL_NAMES:
            sys.exit('gen_templates: %d has no entry in CONTROL_NAMES' % base)
        name, names = CONTROL_NAMES[base]
        controls = layouts_of(base, fn)[0]
        ok, cancel = ok_cancel_of(base, controls)
        ids = [c['id'] for c in controls if c['id'] not in (65535, ok, cancel)]
        for cid in ids:
            if cid not in names:
                sys.exit('gen_templates: control %d of %d has no name' % (cid, base))
        for cid in names:
            if cid not in ids:
                sys.exit('gen_templates: %d has no control %d to name %s' % (base, cid, names[cid]))
        out += ['', '/// %d %s' % (base, title or '(page)'), 'namespace %s {' % name,
                'inline constexpr unsigned kTemplate = %d;' % base]
        if ok:
            out.append('inline constexpr unsigned kOk = %d;' % ok)
        if cancel:
            out.append('inline constexpr unsigned kCancel = %d;' % cancel)
        seen = set()
        for cid in ids:
            if cid in seen:
                continue
            seen.add(cid)
            out.append('inline constexpr unsigned %s = %d;' % (names[cid], cid))
        out.append('}  // namespace %s' % name)
    out += ['', '}  // namespace veld5::ctl', '']
    return '\n'.join(out)


# File written (from the root of the checkout) and the function giving its text.
FILES = [
    ('src/res/templates/Dialogs.cpp',
     lambda: render('The dialog templates in their four layouts.', DIALOGS)),
    ('src/res/templates/ValueEntry.cpp',
     lambda: render('The value entry dialogs (password, number, text, rotation) in their four '
                    'layouts.', VALUE_ENTRY)),
    ('src/res/templates/ControlIds.h', lambda: render_ids(DIALOGS + VALUE_ENTRY)),
]


def main():
    parser = argparse.ArgumentParser(description='Writes the dialog templates.')
    parser.add_argument('--check', action='store_true',
                        help='write nothing; fail when a checked-in file differs from the output')
    args = parser.parse_args()
    stale = []
    for rel, text_of in FILES:
        text = text_of()
        path = os.path.join(ROOT, rel)
        try:
            with open(path, encoding='utf-8', newline='') as f:
                old = f.read()
        except FileNotFoundError:
            old = None
        if old == text:
            continue
        if args.check:
            stale.append(rel)
            print('%s %s the output of tools/gen_templates.py'
                  % (rel, 'is missing:' if old is None else 'differs from'), file=sys.stderr)
            diff = difflib.unified_diff((old or '').splitlines(), text.splitlines(),
                                        rel + ' (checked in)', rel + ' (generated)', lineterm='', n=1)
            for n, line in enumerate(diff):
                if n == 40:
                    print('...', file=sys.stderr)
                    break
                print(line, file=sys.stderr)
        else:
            with open(path, 'w', encoding='utf-8', newline='\n') as f:
                f.write(text)
            print('wrote %s' % rel)
    if stale:
        print('run: python3 tools/gen_templates.py', file=sys.stderr)
        return 1
    return 0


if __name__ == '__main__':
    sys.exit(main())
