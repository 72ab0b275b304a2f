// Each layer by itself, one above the other in space. Dragging turns the stack, as the arrow keys do.

export function makeLayers(panel, connection, screen) {
  panel.innerHTML = `
    <div class="space" tabindex="0" role="img" aria-label="The layers, one above the other. Arrow keys turn them."><div class="stack"></div></div>
    <label>Apart <input type="range" name="apart" min="0" max="40" value="14"></label>`;
  const space = panel.querySelector('.space');
  const stack = panel.querySelector('.stack');
  const apart = panel.querySelector('[name=apart]');
  let turn = { x: -12, y: 38 }; // degrees

  const place = () => {
    const { width, height } = screen.size;
    const depth = stack.childElementCount * apart.value;
    const middle = depth / 2;
    // So that all of it is seen, however it is turned; what perspective enlarges is left room.
    const [aside, up] = [turn.y, turn.x].map((angle) => (angle * Math.PI) / 180);
    const across = width * Math.abs(Math.cos(aside)) + depth * Math.abs(Math.sin(aside));
    const high = height * Math.abs(Math.cos(up)) +
      (depth * Math.abs(Math.cos(aside)) + width * Math.abs(Math.sin(aside))) * Math.abs(Math.sin(up));
    const scale = Math.min(space.clientWidth / across, space.clientHeight / high) * 0.82;
    stack.style.width = `${width}px`;
    stack.style.height = `${height}px`;
    stack.style.transform =
      `translate(-50%, -50%) scale(${scale}) rotateX(${turn.x}deg) rotateY(${turn.y}deg) translateZ(${-middle}px)`;
    [...stack.children].forEach((layer, index) => {
      layer.style.transform = `translateZ(${index * apart.value}px)`;
    });
  };

  space.addEventListener('pointerdown', (event) => {
    space.setPointerCapture(event.pointerId);
    const start = { x: event.clientX, y: event.clientY, ...{ turn } };
    space.onpointermove = (move) => {
      turn = { x: start.turn.x - (move.clientY - start.y) / 3, y: start.turn.y + (move.clientX - start.x) / 3 };
      place();
    };
    space.onpointerup = space.onpointercancel = () => (space.onpointermove = null);
  });
  space.addEventListener('keydown', (event) => {
    const step = { ArrowLeft: [0, -5], ArrowRight: [0, 5], ArrowUp: [5, 0], ArrowDown: [-5, 0] }[event.key];
    if (!step) return;
    turn = { x: turn.x + step[0], y: turn.y + step[1] };
    place();
    event.preventDefault();
  });
  apart.addEventListener('input', place);
  new ResizeObserver(place).observe(space);

  return {
    async load() {
      const layers = await connection.ask({ do: 'layers' });
      stack.replaceChildren(...layers.map((layer) => {
        const [x, y, width, height] = layer.frame;
        const image = Object.assign(document.createElement('img'), { src: layer.picture, title: layer.class, alt: '', draggable: false });
        Object.assign(image.style, {
          left: `${x}px`, top: `${y}px`, width: `${width}px`, height: `${height}px`, opacity: layer.alpha });
        return image;
      }));
      place();
    },
  };
}
