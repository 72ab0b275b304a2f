// The phone's picture: rows of pixels as they change, unpacked and put where they belong, in order. The
// phone is told how large it is shown, and that a picture has been drawn.

// A message is numbers of 32 bits (frame, width, height, bands, then top and rows of each band) and packed
// pixels.
function read(message) {
  const [frame, width, height, count] = new Uint32Array(message, 0, 4);
  const numbers = new Uint32Array(message, 16, count * 2);
  const bands = Array.from({ length: count }, (_, i) => ({ top: numbers[2 * i], rows: numbers[2 * i + 1] }));
  return { frame, width, height, bands, packed: new Uint8Array(message, 16 + count * 8) };
}

async function unpacked(bytes) {
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Response(stream).arrayBuffer();
}

export class Screen {
  #canvas;
  #context;
  #connection;
  #size = { width: 375, height: 812 }; // points
  #said = 0;
  #last = Promise.resolve();
  frames = 0; // drawn so far

  constructor(canvas, connection) {
    this.#canvas = canvas;
    this.#context = canvas.getContext('2d', { alpha: false });
    this.#connection = connection;
    connection.addEventListener('picture', ({ detail }) => {
      this.#last = this.#last.then(() => this.#show(detail)).catch((error) => console.error(error));
    });
    connection.addEventListener('state', ({ detail }) => this.#shape(detail));
    connection.addEventListener('open', () => this.#look(true));
    new ResizeObserver(() => this.#look(false)).observe(canvas);
    document.addEventListener('visibilitychange', () => this.#look(true));
  }

  get size() {
    return this.#size;
  }

  // From a place on the page to points of the phone: hundredths, which no display shows and a recording of
  // which can be read.
  toPhone(clientX, clientY) {
    const box = this.#canvas.getBoundingClientRect();
    const points = (length, whole, size) => Math.round((length / whole) * size * 100) / 100;
    return {
      x: points(clientX - box.left, box.width, this.#size.width),
      y: points(clientY - box.top, box.height, this.#size.height),
    };
  }

  #shape({ width, height }) {
    if (width === this.#size.width && height === this.#size.height) return;
    this.#size = { width, height };
    document.documentElement.style.setProperty('--points-wide', width);
    document.documentElement.style.setProperty('--points-high', height);
  }

  // A page that nobody sees wants no pictures.
  #look(anyway) {
    const shown = this.#canvas.clientWidth * devicePixelRatio;
    const scale = document.hidden ? 0 : Math.round((shown / this.#size.width) * 1e4) / 1e4;
    if (!anyway && scale === this.#said) return;
    this.#said = scale;
    this.#connection.send({ do: 'look', scale });
  }

  async #show(message) {
    const { width, height, bands, packed } = read(message);
    const pixels = await unpacked(packed);
    if (this.#canvas.width !== width || this.#canvas.height !== height) {
      this.#canvas.width = width;
      this.#canvas.height = height;
    }
    let offset = 0;
    for (const { top, rows } of bands) {
      const bytes = new Uint8ClampedArray(pixels, offset, width * rows * 4);
      this.#context.putImageData(new ImageData(bytes, width, rows), 0, top);
      offset += bytes.length;
    }
    ++this.frames;
    this.#connection.send({ do: 'seen' });
  }
}
