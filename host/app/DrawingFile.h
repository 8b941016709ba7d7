#pragma once
// Drawing files: the drawing (tables, entity sets, entities) and the CAD
// instance's settings (current items, line type scale, angle system, cursor,
// colours, object snap, the views' grids, raster images) as one JSON document,
// optionally sealed with a password. docs/drawing-file.md describes the format.
//
// The writer is canonical: object keys sorted, tables and sets in their
// order, entities in drawing order, numbers in their shortest exact form. Two
// drawings that write the same bytes are the same drawing, which is what
// tests compare.
//
// The reader checks everything before it touches the CAD instance: a file that
// is damaged or names something that does not exist gives an error naming the
// place ("layers[2].ltype: no line type \"DASH\"") and leaves the open drawing
// as it was.
#include <QByteArray>
#include <QString>

#include "veld/FileReaderPasswordRequest.h"

class CVELD;

namespace drawingfile {

/// The drawing and settings of @p cad as JSON.
QByteArray Write(const CVELD& cad);
/// Write plus what only lives in the running program: the selection (entity
/// handles), the undo list's counts and the cursor of the system settings.
/// Used to compare a whole state in one step.
QByteArray Dump(const CVELD& cad);

/// Replaces the drawing of @p cad with the one in @p json. False with
/// @p error set when the document is not a valid drawing; @p cad is then
/// unchanged.
bool Read(CVELD& cad, const QByteArray& json, QString& error);

/// The largest drawing file Load reads (1 GiB): opening one takes about
/// 1.6 times its size in memory.
inline constexpr qint64 kMaxFileBytes = qint64(1) << 30;

/// Opens a regular file of at most kMaxFileBytes, plain or sealed (a folder,
/// device or FIFO is refused without being read); for a sealed one @p request is asked for
/// the password (and whether to retry after a wrong one). A sealed file whose
/// header shows damage is refused as damaged without a question; one that no
/// password opened, as "wrong password or damaged file".
bool Load(CVELD& cad, const QString& path, veld::IFileReaderPasswordRequest* request,
          QString& error);
/// Saves to @p path, sealed when @p password is not empty. The file is
/// written beside the target and renamed over it, so a failed save leaves the
/// old file; a target that exists and is not a regular file (a device, a
/// FIFO, a folder) is refused.
bool Save(const CVELD& cad, const QString& path, const QString& password, QString& error);

}  // namespace drawingfile
