// The line to the phone. It is taken up again by itself, so that the page outlives a restart of the phone;
// what is said meanwhile is lost, as a finger on a phone that is off is.

export class Connection extends EventTarget {
  #socket = null;
  #answers = new Map();
  #lastId = 0;
  #pause = 250; // milliseconds until the next try

  connect() {
    const address = new URL('phone', document.baseURI);
    address.protocol = address.protocol === 'https:' ? 'wss:' : 'ws:';
    this.#socket = new WebSocket(address);
    this.#socket.binaryType = 'arraybuffer';
    this.#socket.onopen = () => {
      this.#pause = 250;
      this.#tell('open');
    };
    this.#socket.onmessage = ({ data }) => this.#take(data);
    this.#socket.onclose = ({ code, reason }) => {
      for (const { reject } of this.#answers.values()) reject(new Error('the connection was lost'));
      this.#answers.clear();
      this.#tell('closed', { code, reason });
      setTimeout(() => this.connect(), this.#pause);
      this.#pause = Math.min(this.#pause * 2, 4000);
    };
  }

  get isOpen() {
    return this.#socket?.readyState === WebSocket.OPEN;
  }

  // One way.
  send(request) {
    if (this.isOpen) this.#socket.send(JSON.stringify(request));
  }

  // A statement, as in a scenario; what comes of it is told to all pages.
  say(line) {
    this.send({ do: 'say', line });
  }

  // There and back.
  ask(request) {
    if (!this.isOpen) return Promise.reject(new Error('there is no connection'));
    const id = ++this.#lastId;
    this.send({ ...request, id });
    return new Promise((resolve, reject) => this.#answers.set(id, { resolve, reject }));
  }

  #take(data) {
    if (typeof data !== 'string') return this.#tell('picture', data);
    const message = JSON.parse(data);
    if (message.hello) this.#tell('hello', message.hello);
    if (message.state) this.#tell('state', message.state);
    if (message.lost) this.#tell('event', { kind: 'lost', text: `${message.lost} events were missed` });
    for (const event of message.events ?? []) this.#tell('event', event);
    if (message.missed) this.#tell('happened', { kind: 'lost', text: `${message.missed} were missed` });
    for (const event of message.happened ?? []) this.#tell('happened', event);
    if ('answer' in message) {
      this.#answers.get(message.id)?.resolve(message.answer);
      this.#answers.delete(message.id);
    }
  }

  #tell(type, detail) {
    this.dispatchEvent(new CustomEvent(type, { detail }));
  }
}
