// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

// The library's DXF writer writes every layer as switched off, leaves out the widths and bulges of old-style 2-D
// polylines, the colours of dimension styles as the format's own 32 bits, and no more than their name of entities that it
// cannot write. The decoded drawing has what is missing; it is put back by handle. Bare names are taken out.

import { objectsOf, tagsOf } from './drawing.mjs';

const VERTEX_2D = 10; // object types of the DWG format
const LAYER = 51;
const WITHOUT_PAIRS = new Set(['ENDSEC', 'ENDTAB', 'EOF']);

function decodedValues(library, drawing) {
  const layersOff = new Set();
  const vertices = new Map();
  for (const { object, handle, type } of objectsOf(library, drawing)) {
    if (type !== LAYER && type !== VERTEX_2D) continue;
    const fields = type === LAYER ? library.dwg_object_to_object_tio(object) : library.dwg_object_to_entity_tio(object);
    if (!fields) continue;
    const value = (name) => library.dwg_dynapi_entity_value(fields, name).data;
    if (type === VERTEX_2D)
      vertices.set(handle, [[40, value('start_width')], [41, value('end_width')], [42, value('bulge')]]);
    else if (value('off')) layersOff.add(handle);
  }
  return { layersOff, vertices };
}

function layerColour(value, isOff) {
  const colour = Math.abs(Number.parseInt(value, 10));
  return `${isOff ? -colour : colour}\r\n`;
}

/** A colour index, of a colour whose high byte says by layer (C0), by block (C1), true colour (C2) or index (C3). */
function colourIndex(value) {
  const colour = Number.parseInt(value, 10);
  if (colour >= 0 && colour <= 256) return `${colour}\r\n`;
  const method = (colour >>> 24) & 0xff;
  return `${method === 0xc1 ? 0 : method === 0xc3 ? colour & 0xff : 256}\r\n`;
}

function vertexTags(values) {
  const present = values.filter(([, value]) => Number.isFinite(value) && value !== 0);
  return present.map(([code, value]) => ` ${code}\r\n${value}\r\n`).join('');
}

/** The DXF that the library wrote of a decoded drawing, with what its writer loses. */
export function putBackWhatTheWriterLoses(library, drawing, dxf) {
  const { layersOff, vertices } = decodedValues(library, drawing);
  const parts = [];
  let copied = 0;
  const replace = (from, to, text) => {
    parts.push(dxf.subarray(copied, from), Buffer.from(text, 'latin1'));
    copied = to;
  };
  let type = '';
  let handle = '';
  let bareAt = -1; // where a record starts that has nothing but its name so far
  for (const { code, begin, valueAt, end, value } of tagsOf(dxf)) {
    if (code === 0) {
      if (bareAt >= 0 && !WITHOUT_PAIRS.has(type)) replace(bareAt, begin, '');
      bareAt = begin;
      type = value();
      handle = '';
      continue;
    }
    bareAt = -1;
    if (type === 'DIMSTYLE' && code >= 176 && code <= 178) replace(valueAt, end, colourIndex(value()));
    if (type !== 'LAYER' && type !== 'VERTEX') continue;
    if (code === 5) handle = value().toUpperCase();
    else if (type === 'LAYER' && code === 62) replace(valueAt, end, layerColour(value(), layersOff.has(handle)));
    else if (type === 'VERTEX' && code === 30) replace(end, end, vertexTags(vertices.get(handle) ?? []));
  }
  parts.push(dxf.subarray(copied));
  return Buffer.concat(parts);
}
