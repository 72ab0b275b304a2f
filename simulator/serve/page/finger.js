// The mouse, a pen, a real finger or the keyboard as the one finger of the phone; and the finger of whichever
// page has it, drawn.

const steps = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };

export class Finger {
  #canvas;
  #mark;
  #screen;
  #connection;
  #pointer = null; // that is down
  #keys = null; // where the keyboard's finger is, in points
  #pressed = false; // it is down
  #picking = null; // takes the next place instead

  constructor(canvas, mark, screen, connection) {
    this.#canvas = canvas;
    this.#mark = mark;
    this.#screen = screen;
    this.#connection = connection;
    canvas.addEventListener('pointerdown', (event) => this.#down(event));
    canvas.addEventListener('pointermove', (event) => this.#move(event));
    canvas.addEventListener('pointerup', (event) => this.#up(event, 'up'));
    canvas.addEventListener('pointercancel', (event) => this.#up(event, 'cancel'));
    canvas.addEventListener('pointerleave', () => this.#picking?.over(null));
    canvas.addEventListener('keydown', (event) => this.#keyDown(event));
    canvas.addEventListener('keyup', (event) => this.#keyUp(event));
    canvas.addEventListener('blur', () => this.#leave());
    connection.addEventListener('state', ({ detail }) => this.#draw(detail.finger));
  }

  // Until called with null, places are told to `over` and `chosen` and are no touches.
  pick(picking) {
    this.#picking = picking;
    this.#canvas.classList.toggle('picking', picking !== null);
  }

  #touch(phase, place) {
    this.#connection.send({ do: 'touch', phase, ...place });
  }

  #place(event) {
    return this.#screen.toPhone(event.clientX, event.clientY);
  }

  #down(event) {
    if (event.button !== 0 || this.#pointer !== null) return;
    if (this.#picking) return this.#picking.chosen(this.#place(event));
    this.#pointer = event.pointerId;
    this.#canvas.setPointerCapture(event.pointerId);
    this.#touch('down', this.#place(event));
  }

  #move(event) {
    if (this.#picking) return this.#picking.over(this.#place(event));
    if (event.pointerId !== this.#pointer) return;
    // A browser tells of moves once a frame, and of those in between with them.
    const moves = event.getCoalescedEvents?.() ?? [];
    for (const each of moves.length > 0 ? moves : [event]) this.#touch('move', this.#place(each));
  }

  #up(event, phase) {
    if (event.pointerId !== this.#pointer) return;
    this.#pointer = null;
    this.#touch(phase);
  }

  #keyDown(event) {
    const step = steps[event.key];
    if (step) {
      const length = event.shiftKey ? 50 : event.altKey ? 1 : 10; // points
      this.#keys ??= { x: this.#screen.size.width / 2, y: this.#screen.size.height / 2 };
      this.#keys.x = Math.min(Math.max(this.#keys.x + step[0] * length, 0), this.#screen.size.width - 1);
      this.#keys.y = Math.min(Math.max(this.#keys.y + step[1] * length, 0), this.#screen.size.height - 1);
      if (this.#pressed) this.#touch('move', this.#keys);
      else if (this.#picking) this.#picking.over(this.#keys);
      this.#draw(null);
    } else if (event.key === ' ') {
      this.#keys ??= { x: this.#screen.size.width / 2, y: this.#screen.size.height / 2 };
      if (this.#picking) this.#picking.chosen(this.#keys);
      else if (!this.#pressed) this.#touch('down', this.#keys);
      this.#pressed = !this.#picking;
    } else if (event.key === 'Escape') {
      this.#leave();
      this.#picking?.over(null);
      return;
    } else {
      return;
    }
    event.preventDefault();
    event.stopPropagation();
  }

  #keyUp(event) {
    if (event.key !== ' ' || !this.#pressed) return;
    this.#pressed = false;
    this.#touch('up');
    event.preventDefault();
  }

  #leave() {
    if (this.#pressed) this.#touch('cancel');
    this.#pressed = false;
    this.#keys = null;
    this.#draw(null);
  }

  #draw(down) {
    const place = down ? { x: down[0], y: down[1] } : this.#keys;
    this.#mark.className = down ? 'down' : place ? 'over' : '';
    if (!place) return;
    this.#mark.style.left = `${(place.x / this.#screen.size.width) * 100}%`;
    this.#mark.style.top = `${(place.y / this.#screen.size.height) * 100}%`;
  }
}
