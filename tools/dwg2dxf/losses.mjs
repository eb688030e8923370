// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

// The library's DXF writer passes over entities that it cannot write, without a word.

import { objectsOf, tagsOf } from './drawing.mjs';

const ENTITY = 0; // the library's word for what is drawn; all else are records of tables and the like
const FRAMES = new Set(['BLOCK', 'ENDBLK', 'SEQEND']); // draw nothing

function handlesOf(dxf) {
  const handles = new Set();
  for (const { code, value } of tagsOf(dxf)) if (code === 5) handles.add(value().toUpperCase());
  return handles;
}

/** What DXF calls it: the library tells the kinds of dimensions, polylines and vertices apart in their names. */
function kindOf(library, object) {
  const name = library.dwg_object_get_dxfname(object) || 'UNKNOWN';
  return name.replace(/^(DIMENSION|POLYLINE|VERTEX)_.*$/, '$1').replace(/[^\w$]/g, '_');
}

/** How many entities of each kind the decoded drawing has and its DXF lacks, by kind. */
export function lostEntities(library, drawing, dxf) {
  const written = handlesOf(dxf);
  const lost = new Map();
  for (const { object, handle } of objectsOf(library, drawing)) {
    if (written.has(handle) || library.dwg_object_get_supertype(object) !== ENTITY) continue;
    const kind = kindOf(library, object);
    if (!FRAMES.has(kind)) lost.set(kind, (lost.get(kind) ?? 0) + 1);
  }
  return new Map([...lost].sort());
}
