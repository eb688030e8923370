// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

// The library's DXF writer writes every layer as switched off, and leaves out the widths and bulges of old-style
// 2-D polylines. The decoded drawing has them; they are put back by handle.

const VERTEX_2D = 10; // object types of the DWG format
const LAYER = 51;

function* objectsOf(library, file) {
  const drawing = library.dwg_read_file(file).data;
  for (let i = 0, count = library.dwg_get_num_objects(drawing); i < count; i++) {
    const object = library.dwg_get_object(drawing, i);
    if (object) yield { object, type: library.dwg_object_get_fixedtype(object) };
  }
}

function decodedValues(library, file) {
  const layersOff = new Set();
  const vertices = new Map();
  for (const { object, type } of objectsOf(library, file)) {
    if (type !== LAYER && type !== VERTEX_2D) continue;
    const fields = type === LAYER ? library.dwg_object_to_object_tio(object) : library.dwg_object_to_entity_tio(object);
    if (!fields) continue;
    const value = (name) => library.dwg_dynapi_entity_value(fields, name).data;
    const handle = library.dwg_obj_get_handle_value(object).toString(16).toUpperCase();
    if (type === VERTEX_2D)
      vertices.set(handle, [[40, value('start_width')], [41, value('end_width')], [42, value('bulge')]]);
    else if (value('off')) layersOff.add(handle);
  }
  return { layersOff, vertices };
}

/** The tags of a DXF: the group code, the value, where the value starts and where the next tag does. */
function* tagsOf(dxf) {
  for (let at = 0; at < dxf.length; ) {
    const valueAt = dxf.indexOf(10, at) + 1;
    const newline = valueAt === 0 ? -1 : dxf.indexOf(10, valueAt);
    if (newline < 0) return;
    const code = Number.parseInt(dxf.toString('latin1', at, valueAt), 10);
    yield { code, valueAt, end: newline + 1, value: () => dxf.toString('latin1', valueAt, newline).trim() };
    at = newline + 1;
  }
}

function layerColour(value, isOff) {
  const colour = Math.abs(Number.parseInt(value, 10));
  return `${isOff ? -colour : colour}\r\n`;
}

function vertexTags(values) {
  const present = values.filter(([, value]) => Number.isFinite(value) && value !== 0);
  return present.map(([code, value]) => ` ${code}\r\n${value}\r\n`).join('');
}

export function putBackWhatTheWriterLoses(library, file, dxf) {
  const { layersOff, vertices } = decodedValues(library, file);
  const parts = [];
  let copied = 0;
  const replace = (from, to, text) => {
    parts.push(dxf.subarray(copied, from), Buffer.from(text, 'latin1'));
    copied = to;
  };
  let type = '';
  let handle = '';
  for (const { code, valueAt, end, value } of tagsOf(dxf)) {
    if (code === 0) {
      type = value();
      handle = '';
    } else if (type !== 'LAYER' && type !== 'VERTEX') continue;
    else if (code === 5) handle = value().toUpperCase();
    else if (type === 'LAYER' && code === 62) replace(valueAt, end, layerColour(value(), layersOff.has(handle)));
    else if (type === 'VERTEX' && code === 30) replace(end, end, vertexTags(vertices.get(handle) ?? []));
  }
  parts.push(dxf.subarray(copied));
  return Buffer.concat(parts);
}
