#!/usr/bin/env python3
"""Writes src/res/templates/Dialogs.cpp: the placement of every control of the
dialog templates in the four layouts. Each dialog is a function that places its
controls for one layout (width W, height H in dialog units); the script checks
that every layout yields the same controls in the same order and emits them as
data. Run it after changing a placement: python3 tools/gen_templates.py"""
import os

SIZES = [(138, 167), (138, 217), (179, 120), (229, 120)]
M = 6          # margin
BTN_H = 16     # push button height
ROW = 14       # pitch of label/field rows
EDIT_H = 12
COMBO_H = 13
LAND_BTN_W = 44


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

    def field(self, label, cid, x, y, lw, fw, kind='Edit', style='kNumeric | kAutoHScroll | kBorder', **kw):
        self.add(65535, 'Static', label, x, y + 2, lw, 9, **{k: v for k, v in kw.items() if k.startswith('alt')})
        h = COMBO_H if kind == 'ComboBox' else EDIT_H
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
    if L.land:
        lcol = 66 if L.v == 2 else 86
        rx = M + lcol + 4
        rw = L.W - M - rx
        gh = 9 + 3 * 13 + 3
        L.add(65535, 'GroupBox', 'Text...', M, 2, lcol, gh)
        for i, cid in enumerate((11139, 11146, 11147)):
            L.add(cid, 'Edit', '', M + 4, 12 + i * 13, lcol - 8, EDIT_H, 'kAutoHScroll | kBorder')
        L.add(65535, 'GroupBox', 'Style...', rx, 2, rw, 9 + 6 * 13 + 4)
        lw = 50
        y = 12
        fw = rw - lw - 10
        for label, cid, kind in (('Height :', 11140, 'Edit'), ('Width factor :', 11143, 'Edit'),
                                 ('Rotation :', 11142, 'Edit'), ('Slant angle :', 11141, 'Edit'),
                                 ('Justify :', 11144, 'ComboBox'), ('Style :', 11145, 'ComboBox')):
            style = 'kNumeric | kAutoHScroll | kBorder' if kind == 'Edit' else '0'
            y = L.field(label, cid, rx + 4, y, lw, fw, kind, style) + 13 - ROW
        by = L.H - M - 2 * BTN_H - 4
        L.add(11196, 'PushButton', 'OK', M, by, lcol, BTN_H, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', M, by + BTN_H + 4, lcol, BTN_H)
        return
    tall = L.v == 1
    pitch = 15 if tall else 13
    gw = L.W - 2 * M
    gh = 9 + 3 * pitch + 3
    L.add(65535, 'GroupBox', 'Text...', M, 2, gw, gh)
    for i, cid in enumerate((11139, 11146, 11147)):
        L.add(cid, 'Edit', '', M + 4, 12 + i * pitch, gw - 8, EDIT_H, 'kAutoHScroll | kBorder')
    y0 = 2 + gh + (6 if tall else 2)
    L.add(65535, 'GroupBox', 'Style...', M, y0, gw, 9 + 6 * pitch + 2)
    y = y0 + 10
    lw = 52
    for label, cid, kind in (('Height :', 11140, 'Edit'), ('Width factor :', 11143, 'Edit'),
                             ('Rotation :', 11142, 'Edit'), ('Slant angle :', 11141, 'Edit'),
                             ('Justify :', 11144, 'ComboBox'), ('Style :', 11145, 'ComboBox')):
        style = 'kNumeric | kAutoHScroll | kBorder' if kind == 'Edit' else '0'
        L.field(label, cid, M + 4, y, lw, gw - lw - 10, kind, style)
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
    L.ok_cancel(1, 2)


def d11040(L):  # Angle system
    W = L.W
    h = 70 if not L.land else L.H - 26
    L.add(65535, 'GroupBox', 'Choice of the measuring system of the angles', 1, M, W - 2, h)
    L.add(11123, 'RadioButton', 'Degrees ( 360\u00b0 )\\nOrigin at East - Counterclockwise', 3, M + 14,
          W - 6, 22, 'kGroupStart | kMultiline')
    L.add(11124, 'RadioButton', 'Gons ( 400\u00b0 )\\nOrigin at North - Clockwise', 3, M + 40,
          W - 6, 22, 'kMultiline')
    if L.land:
        bw = 50
        L.add(11196, 'PushButton', 'OK', W - 2 * bw - 8, L.H - 3 - 15, bw, 15, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', W - bw - 4, L.H - 3 - 15, bw, 15)
    else:
        L.ok_cancel()


def d11044(L):  # Color options
    right = L.content_right()
    land = L.land
    if land:
        # The palette across the top, the small strips and logical colours
        # below it; name, preview and buttons in the right-hand column.
        L.add(65535, 'GroupBox', 'Color options', 2, 1, right - 1, L.H - 3)
        x = 6
        L.add(65535, 'GroupBox', 'Standard color', x, 10, 58, 24)
        L.add(11187, 'Custom', '', x + 3, 20, 52, 11)
        L.add(65535, 'GroupBox', 'Gray shades', x + 60, 10, right - x - 62, 24,
              altLabel='Gray tone', altLabelIn='0xC')
        L.add(11189, 'Custom', '', x + 63, 20, 35, 11)
        L.add(65535, 'GroupBox', 'Logical colors', x, 36, right - x - 2, 24)
        bw = (right - x - 12) // 2
        L.add(11190, 'PushButton', 'By Layer', x + 4, 45, bw, 13)
        L.add(11191, 'PushButton', 'By Block', x + 6 + bw, 45, bw, 13)
        L.add(65535, 'Static', 'Full palette of colors', x, 62, 90, 9)
        L.add(11192, 'Custom', '', x, 72, right - x - 3, 21)
        L.add(11193, 'Custom', '', x, 94, right - x - 3, 21)
        cx = right + 6
        cw = L.W - M - cx
        L.add(65535, 'Static', 'Color :', cx, 4, cw, 9)
        L.add(11194, 'Edit', '', cx, 14, cw, EDIT_H, 'kReadOnly | kAutoHScroll | kBorder', disabledIn='0xC')
        L.add(11195, 'Custom', '', cx, 30, 18, 18, 'kBorder')
        L.ok_cancel()
        return
    L.add(65535, 'GroupBox', 'Color options', 2, 1, right - 1, L.content_bottom() - 2)
    x = 6
    y = 10
    L.add(65535, 'GroupBox', 'Standard color', x, y, 58, 24)
    L.add(11187, 'Custom', '', x + 3, y + 10, 52, 11)
    L.add(65535, 'GroupBox', 'Gray shades', x + 60, y, right - x - 62, 24,
          altLabel='Gray tone', altLabelIn='0xC')
    L.add(11189, 'Custom', '', x + 63, y + 10, 35, 11)
    y += 26
    L.add(65535, 'GroupBox', 'Logical colors', x, y, right - x - 2, 25)
    bw = (right - x - 12) // 2
    L.add(11190, 'PushButton', 'By Layer', x + 4, y + 9, bw, 13)
    L.add(11191, 'PushButton', 'By Block', x + 6 + bw, y + 9, bw, 13)
    y += 27
    L.add(65535, 'Static', 'Full palette of colors', x, y, 90, 9)
    y += 10
    ph = 22 if L.v == 0 else 30
    L.add(11192, 'Custom', '', x, y, right - x - 3, ph)
    L.add(11193, 'Custom', '', x, y + ph + 1, right - x - 3, ph)
    y += 2 * ph + 4
    L.add(65535, 'Static', 'Color :', x, y + 2, 26, 9)
    L.add(11194, 'Edit', '', x + 28, y, right - x - 54, EDIT_H, 'kReadOnly | kAutoHScroll | kBorder',
          disabledIn='0xC')
    L.add(11195, 'Custom', '', right - 22, y - 2, 16, 16, 'kBorder')
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
    L.add(65535, 'GroupBox', 'Text style', lx, y, lw, 57 if two_rows else 41)
    L.add(11100, 'ComboBox', '', lx + 4, y + 9, lw - 8, COMBO_H)
    if two_rows:
        bw = (lw - 6) // 2
        places = ((lx + 2, y + 24), (lx + 4 + bw, y + 24), (lx + 2, y + 40))
    else:
        bw = (lw - 4 - 4) // 3
        places = tuple((lx + 2 + i * (bw + 2), y + 24) for i in range(3))
    for (cid, label), (bx, by) in zip(((11101, 'New'), (11102, 'Rename'), (11103, 'Delete')), places):
        L.add(cid, 'PushButton', label, bx, by, bw, 14)
    y += 59 if two_rows else 43
    L.add(65535, 'GroupBox', 'Font', lx, y, lw, 38)
    L.add(65535, 'Static', 'Name :', lx + 4, y + 11, 34, 9)
    L.add(11104, 'ComboBox', '', lx + 40, y + 9, lw - 40 - 22, COMBO_H,
          'kSorted | kOwnerDraw' if not L.land else 'kSorted')
    L.add(11122, 'PushButton', '', lx + lw - 20, y + 9, 16, 13, 'kIconOnly')
    L.add(65535, 'Static', 'Font style:', lx + 4, y + 25, 40, 9)
    L.add(11105, 'ComboBox', '', lx + 46, y + 23, lw - 50, COMBO_H)
    y += 40
    if L.land:
        y = 1
    eh = 9 + 3 * 13 + 3 + (0 if not L.land else 13)
    L.add(65535, 'GroupBox', 'Effects', rx, y, rw, eh)
    lbl = 50 if not L.v == 2 else 40
    fy = y + 9
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
        L.add(11109, 'CheckBox', 'Vertical', rx + lbl + 38, y + 9 + 13, rw - lbl - 40, 11)
        L.ok_cancel()


def d11060(L):  # Snap type selection
    W = L.W
    labels = ['End points', 'Mid point', 'Intersection', 'Center', 'Quadrant',
              'Tangent', 'Perpendic.', 'Insert', 'Connect to pt.', 'Near']
    modes = ((1135, 'Free drawing'), (1136, 'Input coord.'), (1137, 'Snap'))
    if L.land:
        # Modes side by side, the snap types in two columns, the buttons below.
        L.add(65535, 'GroupBox', 'Mode', 2, 1, W - 4, 22)
        widths = (62, 60, W - 4 - 10 - 122)
        rx = 5
        for i, (cid, label) in enumerate(modes):
            L.add(cid, 'RadioButton', label, rx, 10, widths[i], 10, 'kGroupStart' if i == 0 else 0)
            rx += widths[i] + 1
        L.add(65535, 'GroupBox', 'Snap type', 2, 24, W - 4, 72)
        cw = (W - 12) // 2
        for i, label in enumerate(labels):
            col, row = divmod(i, 5)
            L.add(1138 + i, 'CheckBox', label, 5 + col * (cw + 2), 33 + row * 12, cw, 10)
        bw = 50
        L.add(11196, 'PushButton', 'OK', W - 2 * bw - 8, L.H - 3 - 15, bw, 15, 'kDefault')
        L.add(11197, 'PushButton', 'Cancel', W - bw - 4, L.H - 3 - 15, bw, 15)
        return
    L.add(65535, 'GroupBox', 'Mode', 2, 2, W - 4, 48)
    for i, (cid, label) in enumerate(modes):
        L.add(cid, 'RadioButton', label, 8, 12 + i * 12, 80, 11, 'kGroupStart' if i == 0 else 0)
    gh = 80 if L.v == 0 else 110
    L.add(65535, 'GroupBox', 'Snap type', 2, 53, W - 4, gh)
    cw = (W - 8) // 2
    pitch = 14 if L.v == 0 else 20
    for i, label in enumerate(labels):
        col, row = divmod(i, 5)
        L.add(1138 + i, 'CheckBox', label, 3 + col * (cw + 1), 64 + row * pitch, cw, 11)
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
    if L.land:
        right = L.W - M - 66 - 4
        L.add(1152, 'ListView', '', M, M, right - M, L.H - 2 * M,
              'kReportView | kSingleSel | kOwnerDraw | kBorder')
        x = right + 4
        w = L.W - M - x
        y = 1
        L.add(65535, 'GroupBox', 'New', x, y, w, 0)  # height set below
        new_box = L.items[-1]
        L.add(604, 'PushButton', 'CAD', x + 3, y + 9, (w - 8) // 2, 13)
        L.add(605, 'PushButton', 'Topog.', x + 5 + (w - 8) // 2, y + 9, (w - 8) // 2, 13)
        new_box['rect'] = (x, y, w, 25)
        y += 26
        L.add(65535, 'GroupBox', 'Delete', x, y, w, 25)
        L.add(600, 'PushButton', 'Delete', x + 3, y + 9, w - 6, 13)
        y += 26
        L.add(65535, 'GroupBox', 'Move', x, y, w, 25)
        L.add(602, 'PushButton', 'Up', x + 3, y + 9, (w - 8) // 2, 13)
        L.add(603, 'PushButton', 'Down', x + 5 + (w - 8) // 2, y + 9, (w - 8) // 2, 13)
        by = L.H - 2 - 2 * 14 - 3
        L.add(1, 'PushButton', 'OK', x, by, w, 14, 'kDefault')
        L.add(2, 'PushButton', 'Cancel', x, by + 17, w, 14)
    else:
        bottom = L.H - M - BTN_H - 6 - 56
        L.add(1152, 'ListView', '', M, M, right - M, bottom - M,
              'kReportView | kSingleSel | kOwnerDraw | kBorder')
        y = bottom + 2
        full = right - M
        boxes = [('New', [(604, 'CAD'), (605, 'Topog.')], M, y, full - 52),
                 ('Delete', [(600, 'Delete')], right - 48, y, 48),
                 ('Move', [(602, 'Up'), (603, 'Down')], M, y + 27, full)]
        for label, btns, gx, gy, gw in boxes:
            L.add(65535, 'GroupBox', label, gx, gy, gw, 26)
            bw = (gw - 4 - 2 * (len(btns) - 1)) // len(btns)
            for j, (cid, bl) in enumerate(btns):
                L.add(cid, 'PushButton', bl, gx + 2 + j * (bw + 2), gy + 10, bw, 14)
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
    y = 28
    L.add(11164, 'RadioButton', 'Grid free', 10, y, 60, 11, 'kGroupStart')
    y += 14
    lw = 44
    fw = 50 if L.land else min(70, W - 26 - lw)
    y = L.field('Interval N :', 11170, 18, y, lw, fw)
    y = L.field('Interval E :', 11171, 18, y, lw, fw)
    if L.land:
        L.add(11166, 'RadioButton', 'From snap', 18 + lw + fw + 8, 28, W - 8 - (18 + lw + fw + 8), 11)
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
            L.field(label, cid, 10 + col * (lw + fw + 8), 28 + row * ROW, lw, fw)
    else:
        fw = min(70, W - 20 - lw)
        y = 28
        for label, cid in rows:
            y = L.field(label, cid, 10, y, lw, fw) + (6 if L.v == 1 else 0)


def d11092(L):  # Select Type Line
    right = L.content_right()
    L.add(65535, 'Static', 'Select a line from those loaded:', M, M, right - M, 9)
    L.add(11203, 'ListView', 'List1', M, M + 12, right - M, L.content_bottom() - M - 12,
          'kReportView | kSingleSel | kShowSelAlways | kOwnerDraw | kBorder')
    L.ok_cancel(1163, 1164)


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

CHILD_SIZES = {11084: [(133, 112), (133, 167), (178, 90), (229, 90)],
               11088: [(133, 113), (133, 167), (179, 92), (229, 92)]}
WIDE_139 = {11060, 11076}


def sizes_for(base):
    if base in CHILD_SIZES:
        return CHILD_SIZES[base]
    s = list(SIZES)
    if base in WIDE_139:
        s[0] = (139, 167)
    return s


def emit():
    out = ['// Placement of the dialog templates in their four layouts, written by',
           '// tools/gen_templates.py (edit the script, then run it).',
           '#include "Templates.h"', '', 'namespace veld5::tpl {', 'using namespace ulo;', '',
           'namespace {']
    decls = []
    for base, title, help_, child, fn in DIALOGS:
        sizes = sizes_for(base)
        layouts = []
        for v in range(4):
            L = Layout(v, sizes[v])
            fn(L)
            layouts.append(L.items)
        n = len(layouts[0])
        for v in range(1, 4):
            assert len(layouts[v]) == n, (base, v, len(layouts[v]), n)
            for a, b in zip(layouts[0], layouts[v]):
                assert (a['id'], a['kind'], a['label']) == (b['id'], b['kind'], b['label']), (base, v, a, b)
        out.append('const CtrlTemplate c%d[] = {' % base)
        for i, c in enumerate(layouts[0]):
            rects = ', '.join('{%d, %d, %d, %d}' % layouts[v][i]['rect'] for v in range(4))
            cid = 'kStaticId' if c['id'] == 65535 else str(c['id'])
            label = c['label'].replace('"', '\\"')
            extra = ''
            hidden = c.get('hiddenIn')
            disabled = c.get('disabledIn')
            alt = c.get('altLabel')
            if hidden or disabled or alt:
                extra = ', %s, %s, %s, %s' % (hidden or 0, disabled or 0,
                                               ('L"%s"' % alt) if alt else 'nullptr',
                                               c.get('altLabelIn') or 0)
            style = c['style'] if c['style'] else 0
            out.append('    {%s, CtrlKind::%s, L"%s", %s, {%s}%s},' % (cid, c['kind'], label, style, rects, extra))
        out.append('};')
        out.append('')
        sz = ', '.join('{%d, %d}' % s for s in sizes)
        h = ('L"%s"' % help_) if help_ else 'nullptr'
        decls.append('const DialogTemplate k%d{%d, L"%s", %s, %s, {%s}, c%d};' %
                     (base, base, title, h, 'true' if child else 'false', sz, base))
    out.append('}  // namespace')
    out.append('')
    out += decls
    out += ['', '}  // namespace veld5::tpl', '']
    path = os.path.join(os.path.dirname(__file__), '..', 'src', 'res', 'templates', 'Dialogs.cpp')
    with open(path, 'w', encoding='utf-8') as f:
        f.write('\n'.join(out))


if __name__ == '__main__':
    emit()
