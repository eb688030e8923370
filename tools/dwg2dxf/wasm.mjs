// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

// Edits a WebAssembly binary; its layout is that of the WebAssembly core specification, section 5 (binary format).

const IMPORTS = 2;
const EXPORTS = 7;
const CODE = 10;
const FUNCTION = 0; // the kind of an import or export
const EMPTY_BODY = Buffer.from([2, 0, 0x0b]); // its size, no local variables, end

class Reader {
  constructor(bytes, at) {
    this.bytes = bytes;
    this.at = at;
  }

  byte() {
    return this.bytes[this.at++];
  }

  number() {
    let value = 0;
    for (let shift = 0; ; shift += 7) {
      const byte = this.byte();
      value |= (byte & 0x7f) << shift;
      if (byte < 0x80) return value >>> 0;
    }
  }

  name() {
    const size = this.number();
    this.at += size;
    return this.bytes.toString('utf8', this.at - size, this.at);
  }
}

function encodeNumber(value) {
  const bytes = [];
  for (; value >= 0x80; value >>>= 7) bytes.push((value & 0x7f) | 0x80);
  return Buffer.from([...bytes, value]);
}

function sectionsOf(wasm) {
  const sections = [];
  for (let start = 8; start < wasm.length; ) {
    const reader = new Reader(wasm, start);
    const id = reader.byte();
    const size = reader.number();
    sections.push({ id, start, content: reader.at, end: reader.at + size });
    start = reader.at + size;
  }
  return sections;
}

function contentOf(wasm, id) {
  return new Reader(wasm, sectionsOf(wasm).find((section) => section.id === id).content);
}

function countImports(wasm) {
  const reader = contentOf(wasm, IMPORTS);
  const count = reader.number();
  for (let i = 0; i < count; i++) {
    reader.name();
    reader.name();
    if (reader.byte() !== FUNCTION) throw new Error('the library imports something other than functions');
    reader.number();
  }
  return count;
}

function exportedFunction(wasm, name) {
  const reader = contentOf(wasm, EXPORTS);
  for (let count = reader.number(); count > 0; count--) {
    const exported = reader.name();
    const kind = reader.byte();
    const index = reader.number();
    if (kind === FUNCTION && exported === name) return index;
  }
  throw new Error(`the library does not export ${name}`);
}

function codeWithout(wasm, body) {
  const reader = contentOf(wasm, CODE);
  const count = reader.number();
  const bodies = [encodeNumber(count)];
  for (let i = 0; i < count; i++) {
    const start = reader.at;
    const size = reader.number();
    reader.at += size;
    bodies.push(i === body ? EMPTY_BODY : wasm.subarray(start, reader.at));
  }
  return Buffer.concat(bodies);
}

/** The binary with the exported function `name` doing nothing; the function must return nothing. */
export function withoutBodyOf(name, wasm) {
  const code = codeWithout(wasm, exportedFunction(wasm, name) - countImports(wasm));
  const parts = sectionsOf(wasm).map(({ id, start, end }) =>
    id === CODE ? Buffer.concat([Buffer.from([CODE]), encodeNumber(code.length), code]) : wasm.subarray(start, end),
  );
  return Buffer.concat([wasm.subarray(0, 8), ...parts]);
}
