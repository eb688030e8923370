// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

import assert from 'node:assert';
import test from 'node:test';
import { lostEntities } from './losses.mjs';
import { putBackWhatTheWriterLoses } from './repair.mjs';

/** Stands for the library with a decoded drawing of these objects: { type, handle, and the fields }. */
function libraryWith(objects) {
  return {
    dwg_get_num_objects: () => objects.length,
    dwg_get_object: (drawing, i) => i + 1,
    dwg_object_get_fixedtype: (object) => objects[object - 1].type,
    dwg_object_get_supertype: (object) => (objects[object - 1].isEntity ? 0 : 1),
    dwg_object_get_dxfname: (object) => objects[object - 1].name,
    dwg_obj_get_handle_value: (object) => BigInt(objects[object - 1].handle),
    dwg_object_to_object_tio: (object) => object,
    dwg_object_to_entity_tio: (object) => object,
    dwg_dynapi_entity_value: (object, name) => ({ data: objects[object - 1][name] }),
  };
}

function dxfOf(lines) {
  return Buffer.from(lines.join('\r\n') + '\r\n', 'latin1');
}

function repaired(objects, ...lines) {
  return putBackWhatTheWriterLoses(libraryWith(objects), 1, dxfOf(lines)).toString('latin1').trimEnd().split('\r\n');
}

test('vertices of 2-D polylines get back what differs from 0, others stay as they are', () => {
  const objects = [
    { type: 10, handle: 0x2a, start_width: 0.5, end_width: 0, bulge: -0.25 },
    { type: 10, handle: 0x2b, start_width: 0, end_width: 0, bulge: NaN },
    { type: 11, handle: 0x2c, start_width: 7, end_width: 7, bulge: 7 },
  ];
  const vertex = (handle) => ['  0', 'VERTEX', '  5', handle, ' 10', '1.0', ' 20', '2.0', ' 30', '3.0', ' 70', '0'];
  const [a, b, c] = ['2A', '2B', '2C'].map(vertex);

  const dxf = repaired(objects, ...a, ...b, ...c, '  0', 'EOF');

  const expected = [...a.slice(0, 10), ' 40', '0.5', ' 42', '-0.25', ...a.slice(10), ...b, ...c, '  0', 'EOF'];
  assert.deepStrictEqual(dxf, expected);
});

test('only the layers that are off get a negative colour, and only layers', () => {
  const objects = [
    { type: 51, handle: 0x10, off: 0 },
    { type: 51, handle: 0x11, off: 1 },
  ];
  const record = (type, handle, colour) => ['  0', type, '  5', handle, '  2', 'n\xe9', ' 62', colour, '  6', 'X'];

  const dxf = repaired(
    objects,
    ...record('LAYER', '10', '    -7'),
    ...record('LAYER', '11', '    -3'),
    ...record('LINE', '11', '    -3'),
  );

  assert.deepStrictEqual(dxf, [
    ...record('LAYER', '10', '7'),
    ...record('LAYER', '11', '-3'),
    ...record('LINE', '11', '    -3'),
  ]);
});

test('entities of which only the name was written are taken out', () => {
  const line = ['  0', 'LINE', '  5', '2A'];
  const end = ['  0', 'ENDSEC', '  0', 'EOF'];
  assert.deepStrictEqual(repaired([], ...line, '  0', 'A', '  0', 'B', ...line, '  0', 'C', ...end),
    [...line, ...line, ...end]);
});

test('what the DXF lacks is counted by kind; objects that draw nothing and frames of blocks are not', () => {
  const objects = [
    { handle: 0x1a, isEntity: true, name: 'LINE' },
    { handle: 0x1b, isEntity: true, name: 'VERTEX_2D' },
    { handle: 0x1c, isEntity: true, name: 'ACAD_TABLE' },
    { handle: 0x1d, isEntity: true, name: 'VERTEX_3D' },
    { handle: 0x1e, isEntity: true, name: null },
    { handle: 0x1f, isEntity: true, name: 'SEQEND' },
    { handle: 0x20, isEntity: false, name: 'SUN' },
  ];
  const lost = lostEntities(libraryWith(objects), 1, dxfOf(['  0', 'LINE', '  5', '1a', '  0', 'EOF']));
  assert.deepStrictEqual([...lost], [['ACAD_TABLE', 1], ['UNKNOWN', 1], ['VERTEX', 2]]);
});

test('colours of dimension styles become indexes', () => {
  const style = (colours) => ['  0', 'DIMSTYLE', '105', '30', ...colours.flatMap((colour) => ['176', colour])];

  const dxf = repaired([], ...style(['-1056964608', '-1073741824', '-1023410173', '-1040187137', '7']), '  0', 'EOF');

  assert.deepStrictEqual(dxf, [...style(['0', '256', '3', '256', '7']), '  0', 'EOF']);
});
