// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

// The decoded drawing in the library's memory, and the pairs of the DXF that it wrote.

/** Each object of the decoded drawing with its handle, as DXF writes it, and its type, a number of the DWG format. */
export function* objectsOf(library, drawing) {
  for (let i = 0, count = library.dwg_get_num_objects(drawing); i < count; i++) {
    const object = library.dwg_get_object(drawing, i);
    if (!object) continue;
    const handle = library.dwg_obj_get_handle_value(object).toString(16).toUpperCase();
    yield { object, handle, type: library.dwg_object_get_fixedtype(object) };
  }
}

/** The tags of a DXF: the group code, the value, where the tag and its value start and where the next tag does. */
export function* tagsOf(dxf) {
  for (let at = 0; at < dxf.length; ) {
    const begin = at;
    const valueAt = dxf.indexOf(10, at) + 1;
    const newline = valueAt === 0 ? -1 : dxf.indexOf(10, valueAt);
    if (newline < 0) return;
    const code = Number.parseInt(dxf.toString('latin1', at, valueAt), 10);
    yield { code, begin, valueAt, end: newline + 1, value: () => dxf.toString('latin1', valueAt, newline).trim() };
    at = newline + 1;
  }
}
