// This file is part of veloxa-dwg2dxf, a DWG to DXF converter that runs as a program of its own.
// Copyright (C) 2026 the Veloxa developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// It is free software: you can redistribute it and/or modify it under the terms of the GNU General Public License as
// published by the Free Software Foundation, either version 3 of the License, or (at your option) any later version.
// It is distributed in the hope that it will be useful, but WITHOUT ANY WARRANTY; see the file COPYING beside it.

import fs from 'node:fs';
import { lostEntities } from './losses.mjs';
import { putBackWhatTheWriterLoses } from './repair.mjs';
import { withoutBodyOf } from './wasm.mjs';

const folder = new URL('node_modules/@mlightcad/libredwg-web/wasm/', import.meta.url);
const { default: instantiate } = await import(new URL('libredwg-web.js', folder));

// The bits of the library's error codes that mean that no whole drawing was read.
const CRITICAL_ERRORS = new Map([
  [1 << 7, 'its classes are missing'],
  [1 << 8, 'a section is missing'],
  [1 << 9, 'a page is missing'],
  [1 << 10, 'it contradicts itself'],
  [1 << 11, 'its objects cannot be read'],
  [1 << 12, 'it cannot be read to its end'],
  [1 << 13, 'it asks for too much memory'],
]);
const STACK_SIZE = 16 << 20; // the 64 KiB it comes with overflow

function convert(library, dwg) {
  library.FS.writeFile('in.dwg', dwg);
  const error = library.dwg_write_dxf('in.dwg', 'out.dxf');
  for (const [bit, reason] of CRITICAL_ERRORS) if (error & bit) throw new Error(reason);

  const dxf = Buffer.from(library.FS.readFile('out.dxf').buffer);
  if (!/\n *0\r?\nEOF\s*$/.test(dxf.subarray(-32).toString('latin1'))) throw new Error('only a part of it could be written');
  const drawing = library.dwg_read_file('in.dwg').data;
  return { dxf: putBackWhatTheWriterLoses(library, drawing, dxf), lost: lostEntities(library, drawing, dxf) };
}

/**
 * Turns the bytes of one DWG after another into those of a DXF, each in a fresh instance of the library. With them
 * comes how many entities of each kind the DXF lacks.
 */
export class Converter {
  // The library's DXF writer frees pointers it must not. An instance lives for one file, so nothing need be freed.
  #code = new WebAssembly.Module(withoutBodyOf('free', fs.readFileSync(new URL('libredwg-web.wasm', folder))));

  async toDxf(dwg) {
    const library = await this.#instance();
    try {
      return convert(library, dwg);
    } catch (error) {
      throw new Error(`the drawing is damaged (${error?.message ?? error})`);
    }
  }

  async #instance() {
    let exports;
    const library = await instantiate({
      print() {},
      printErr() {},
      instantiateWasm: (imports, done) => {
        const instance = new WebAssembly.Instance(this.#code, imports);
        exports = instance.exports;
        done(instance, this.#code);
        return exports;
      },
    });
    const stack = exports.malloc(STACK_SIZE);
    exports._emscripten_stack_restore((stack + STACK_SIZE - 64) & ~15);
    return library;
  }
}
